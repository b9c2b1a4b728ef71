// The control as scripts use it: properties and methods by name, and errors with their numbers.
#include "tests/activex/com.h"
#include "tests/activex/com_double.h"

namespace tabulon::client {
namespace {

class Script : public ComTest {
 protected:
  Script() {
    if (control_) EXPECT_EQ(code(as<IPersistStreamInit>(control_)->InitNew()), code(S_OK));
  }
  static void expect_error(const ScriptError& error, int number) {
    EXPECT_EQ(code(error.result), code(DISP_E_EXCEPTION));
    EXPECT_EQ(code(error.info.scode), code(run_time_error(number)));
    EXPECT_EQ(error.info.wCode, 0);
    EXPECT_NE(error.description, L"");
    EXPECT_EQ(error.source, L"Tabulon.LPctrl");
  }
  static void expect_no_error(const ScriptError& error) { EXPECT_EQ(code(error.result), code(S_OK)); }

  ComPtr<IDispatch> control_ = make_as<IDispatch>();
};

TEST_F(Script, BuildsATableau) {
  ASSERT_TRUE(control_);
  expect_no_error(put(control_.Get(), L"prmNrBeslisVar", 3L));
  expect_no_error(put(control_.Get(), L"prmNrKleinerGelijkVglen", L"1"));
  expect_no_error(put(control_.Get(), L"prmNrGroterGelijkVglen", 0.0));
  expect_no_error(put(control_.Get(), L"prmNrGelijkVglen", static_cast<short>(1)));
  expect_no_error(put(control_.Get(), L"prmBigM", 55L));
  expect_no_error(put(control_.Get(), L"prmShow", true));
  expect_no_error(put(control_.Get(), L"prmDLfunctie", L" 1, 2, 3"));
  expect_no_error(put(control_.Get(), L"prmKleinerGelijkVglen", L" 4, 5, 6"));
  expect_no_error(put(control_.Get(), L"prmGelijkVglen", L" 7, 8, 9"));
  expect_no_error(put(control_.Get(), L"prmRL", L" 10, 11"));
  const std::vector<std::string> lines = saved_lines(as<ILPctrl>(control_).Get());
  const std::vector<std::string> counts{" 3 ", " 0 ", " 1 ", " 0 ", " 1 ", " 55 "};
  ASSERT_GT(lines.size(), 60U);
  EXPECT_EQ(std::vector(lines.begin() + 2, lines.begin() + 8), counts);
  EXPECT_EQ(lines[11], " 1");
  EXPECT_EQ(lines[19], " 3");
}

TEST_F(Script, NamesHaveNoCase) {
  ASSERT_TRUE(control_);
  EXPECT_EQ(dispid_of(control_.Get(), L"PRMBIGM"), dispid_of(control_.Get(), L"prmBigM"));
  EXPECT_EQ(dispid_of(control_.Get(), L"inittableau"), dispid_of(control_.Get(), L"InitTableau"));
}

TEST_F(Script, ANameThatItLacksIsUnknown) {
  ASSERT_TRUE(control_);
  std::wstring name = L"prmKleur";
  LPOLESTR names[] = {name.data()};
  DISPID id = 77;
  EXPECT_EQ(code(control_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id)),
            code(DISP_E_UNKNOWNNAME));
  EXPECT_EQ(id, DISPID_UNKNOWN);
  DISPPARAMS none{};
  EXPECT_EQ(code(control_->Invoke(4711, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr,
                                  nullptr, nullptr)),
            code(DISP_E_MEMBERNOTFOUND));
}

TEST_F(Script, APropertyCannotBeRead) {
  ASSERT_TRUE(control_);
  for (const wchar_t* const name : {L"prmNrBeslisVar", L"prmBigM", L"prmShow", L"prmDLfunctie", L"prmRL"}) {
    _variant_t value;
    EXPECT_EQ(code(invoke(control_.Get(), name, DISPATCH_PROPERTYGET, {}, &value).result),
              code(DISP_E_MEMBERNOTFOUND));
    // A script that does not know which it is asks for both at once.
    EXPECT_EQ(code(invoke(control_.Get(), name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {}, &value).result),
              code(DISP_E_MEMBERNOTFOUND));
  }
}

TEST_F(Script, AMethodTakesAllItsArgumentsAndNoMore) {
  ASSERT_TRUE(control_);
  EXPECT_EQ(code(call(control_.Get(), L"InitTableau", {1L}).result), code(DISP_E_BADPARAMCOUNT));
  EXPECT_EQ(code(call(control_.Get(), L"SchrijfTableau").result), code(DISP_E_BADPARAMCOUNT));
  EXPECT_EQ(code(call(control_.Get(), L"strSoortGetal", {true}).result), code(DISP_E_BADPARAMCOUNT));
  EXPECT_EQ(code(put(control_.Get(), L"prmBigM", 1L).result), code(S_OK));
  EXPECT_EQ(code(invoke(control_.Get(), L"prmBigM", DISPATCH_PROPERTYPUT, {}).result),
            code(DISP_E_BADPARAMCOUNT));
  EXPECT_EQ(code(invoke(control_.Get(), L"prmBigM", DISPATCH_PROPERTYPUT, {1L, 2L}).result),
            code(DISP_E_BADPARAMCOUNT));
}

TEST_F(Script, AWrongValueIsAnErrorWithItsNumber) {
  ASSERT_TRUE(control_);
  expect_error(put(control_.Get(), L"prmNrBeslisVar", L"drie"), 13);
  expect_error(put(control_.Get(), L"prmBigM", L"40000"), 6);
  expect_error(put(control_.Get(), L"prmBigM", 40000L), 6);
  expect_error(put(control_.Get(), L"prmBigM", -1e9), 6);
  expect_error(put(control_.Get(), L"prmShow", L"misschien"), 13);
}

TEST_F(Script, AVariableWithoutAValueIsZeroOrAnEmptyListAndNullIsNothingAtAll) {
  ASSERT_TRUE(control_);
  expect_no_error(put(control_.Get(), L"prmDLfunctie", L" 7, 8"));
  expect_no_error(put(control_.Get(), L"prmDLfunctie", _variant_t()));
  expect_no_error(put(control_.Get(), L"prmBigM", _variant_t()));
  EXPECT_EQ(saved_line(as<ILPctrl>(control_).Get(), 7), " 0 ");
  EXPECT_EQ(saved_line(as<ILPctrl>(control_).Get(), 11), " 0");
  _variant_t null;
  null.ChangeType(VT_NULL);
  expect_error(put(control_.Get(), L"prmDLfunctie", null), 13);
  expect_error(put(control_.Get(), L"prmBigM", null), 13);
}

TEST_F(Script, ATableauBeyondTheRoomIsAnErrorAndLeavesOneThatWorks) {
  ASSERT_TRUE(control_);
  expect_no_error(put(control_.Get(), L"prmNrKleinerGelijkVglen", 11L));
  expect_error(put(control_.Get(), L"prmShow", true), 9);
  expect_no_error(put(control_.Get(), L"prmNrKleinerGelijkVglen", 2L));
  expect_no_error(put(control_.Get(), L"prmShow", true));
  expect_no_error(put(control_.Get(), L"prmRL", L" 1, 2"));
}

TEST_F(Script, AnErrorWithoutAPlaceForItIsStillAnError) {
  ASSERT_TRUE(control_);
  _variant_t value(L"drie");
  DISPID put_argument = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{&value, &put_argument, 1, 1};
  EXPECT_HRESULT_FAILED(control_->Invoke(dispid_of(control_.Get(), L"prmBigM"), IID_NULL, LOCALE_USER_DEFAULT,
                                         DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr));
}

TEST_F(Script, FilesHaveTheirErrors) {
  ASSERT_TRUE(control_);
  expect_error(call(control_.Get(), L"LeesTableau", {L"C:\\nergens.tbl"}), 53);
  expect_error(call(control_.Get(), L"LeesTableau", {L"C:\\wat?.tbl"}), 52);
  expect_error(call(control_.Get(), L"SchrijfTableau", {L"C:\\geen map\\a.tbl"}), 76);
  expect_error(call(control_.Get(), L"SchrijfTableau", {L"C:\\*.tbl"}), 52);
}

TEST_F(Script, WhoCallsDirectlyIsToldTheSame) {
  const ComPtr<ILPctrl> control = as<ILPctrl>(control_);
  ASSERT_TRUE(control);
  EXPECT_EQ(code(as<ISupportErrorInfo>(control_)->InterfaceSupportsErrorInfo(__uuidof(ILPctrl))), code(S_OK));
  EXPECT_EQ(code(as<ISupportErrorInfo>(control_)->InterfaceSupportsErrorInfo(IID_IOleObject)), code(S_FALSE));

  EXPECT_EQ(code(control->put_prmNrKleinerGelijkVglen(11)), code(S_OK));
  EXPECT_EQ(code(control->put_prmShow(VARIANT_TRUE)), code(run_time_error(9)));
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(code(GetErrorInfo(0, info.GetAddressOf())), code(S_OK));
  _bstr_t description, source;
  GUID of{};
  EXPECT_EQ(code(info->GetDescription(description.GetAddress())), code(S_OK));
  EXPECT_EQ(code(info->GetSource(source.GetAddress())), code(S_OK));
  EXPECT_EQ(code(info->GetGUID(&of)), code(S_OK));
  EXPECT_GT(description.length(), 0U);
  EXPECT_STREQ(source, L"Tabulon.LPctrl");
  EXPECT_EQ(of, __uuidof(ILPctrl));
}

// ---- Arguments as careless programs hand them over

class CarelessCall : public Script {
 protected:
  HRESULT call_with(const wchar_t* name, WORD flags, DISPPARAMS parameters) {
    return control_->Invoke(dispid_of(control_.Get(), name), IID_NULL, LOCALE_USER_DEFAULT, flags,
                            &parameters, nullptr, nullptr, nullptr);
  }
  _variant_t value_{L" 1, 2"};
  DISPID names_[3]{3, 4, 5};
};

TEST_F(CarelessCall, ArgumentsThatAreNamedByNothingAreRefused) {
  ASSERT_TRUE(control_);
  EXPECT_EQ(code(call_with(L"LeesTableau", DISPATCH_METHOD, {&value_, nullptr, 1, 1})), code(E_INVALIDARG));
  EXPECT_EQ(code(call_with(L"prmRL", DISPATCH_PROPERTYPUT, {&value_, nullptr, 1, 1})), code(E_INVALIDARG));
}

TEST_F(CarelessCall, MoreNamesThanArgumentsAreRefused) {
  ASSERT_TRUE(control_);
  EXPECT_EQ(code(call_with(L"LeesTableau", DISPATCH_METHOD, {&value_, names_, 1, 3})), code(E_INVALIDARG));
}

TEST_F(CarelessCall, ArgumentsThatAreNowhereAreRefused) {
  ASSERT_TRUE(control_);
  EXPECT_EQ(code(call_with(L"LeesTableau", DISPATCH_METHOD, {nullptr, nullptr, 1, 0})), code(E_INVALIDARG));
  EXPECT_EQ(code(call_with(L"prmRL", DISPATCH_PROPERTYPUT, {nullptr, nullptr, 1, 0})), code(E_INVALIDARG));
}

// ---- Lists that are no texts

// A script's object whose default value is a text, as arrays are in some languages.
class ScriptObject final : public DispatchDouble {
 public:
  explicit ScriptObject(const wchar_t* text) : text_(text) {}

  STDMETHODIMP Invoke(DISPID member, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* value, EXCEPINFO*,
                      UINT*) override {
    if (member != DISPID_VALUE || !value) return DISP_E_MEMBERNOTFOUND;
    value->vt = VT_BSTR;
    value->bstrVal = SysAllocString(text_);
    return S_OK;
  }

 private:
  const wchar_t* text_;
};

_variant_t array_of(std::vector<_variant_t> items) {
  SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(items.size()));
  for (LONG at = 0; at < static_cast<LONG>(items.size()); ++at)
    SafeArrayPutElement(array, &at, &items[static_cast<std::size_t>(at)]);
  _variant_t value;
  value.vt = VT_ARRAY | VT_VARIANT;
  value.parray = array;
  return value;
}

class ScriptList : public Script {
 protected:
  // The first cells of row F are line 11 of the file, and every fourth line after it.
  void expect_row(const _variant_t& list, const char* first, const char* second) {
    expect_no_error(put(control_.Get(), L"prmDLfunctie", list));
    const std::vector<std::string> lines = saved_lines(as<ILPctrl>(control_).Get());
    ASSERT_GT(lines.size(), 15U);
    EXPECT_EQ(lines[11], first);
    EXPECT_EQ(lines[15], second);
  }
};

TEST_F(ScriptList, MayBeAnArray) {
  ASSERT_TRUE(control_);
  expect_row(array_of({-3L, 0.5}), "-3", "0.5");
  expect_row(array_of({L" 7", L"1/2"}), " 7", "1/2");
}

TEST_F(ScriptList, MayBeAnArrayOfOneType) {
  ASSERT_TRUE(control_);
  _variant_t numbers;
  numbers.vt = VT_ARRAY | VT_I2;
  numbers.parray = SafeArrayCreateVector(VT_I2, 1, 2);
  short items[] = {4, -9};
  for (LONG at = 1; at <= 2; ++at) SafeArrayPutElement(numbers.parray, &at, &items[at - 1]);
  expect_row(numbers, "4", "-9");
}

TEST_F(ScriptList, MayBeAVariableOfTheScript) {
  ASSERT_TRUE(control_);
  _variant_t list = array_of({6L, 8L}), lent;
  V_VT(&lent) = VT_VARIANT | VT_BYREF;
  V_VARIANTREF(&lent) = &list;
  expect_row(lent, "6", "8");
}

TEST_F(ScriptList, MayBeAnArrayOfRows) {
  ASSERT_TRUE(control_);
  expect_no_error(
      put(control_.Get(), L"prmKleinerGelijkVglen", array_of({array_of({1L, 0L}), array_of({0L, 2L})})));
  expect_row(array_of({array_of({5L}), array_of({6L})}), "5", "6");
}

TEST_F(ScriptList, MayBeAnObjectWithAText) {
  ASSERT_TRUE(control_);
  ScriptObject object(L"-3,1/2");
  expect_row(_variant_t(&object), "-3", "1/2");
  expect_row(array_of({_variant_t(&object), 4L}), "-3", "1/2");
  EXPECT_EQ(object.references, 1U);
}

TEST_F(ScriptList, OfWhatHasNoTextIsError13) {
  ASSERT_TRUE(control_);
  _variant_t null;
  null.ChangeType(VT_NULL);
  expect_error(put(control_.Get(), L"prmDLfunctie", array_of({1L, null})), 13);
  expect_error(put(control_.Get(), L"prmDLfunctie", _variant_t(static_cast<IDispatch*>(nullptr))), 13);
  _variant_t square;
  SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
  square.vt = VT_ARRAY | VT_I2;
  square.parray = SafeArrayCreate(VT_I2, 2, bounds);
  expect_error(put(control_.Get(), L"prmDLfunctie", square), 13);
  _variant_t decimals;
  decimals.vt = VT_ARRAY | VT_DECIMAL;
  decimals.parray = SafeArrayCreateVector(VT_DECIMAL, 0, 2);
  expect_error(put(control_.Get(), L"prmDLfunctie", decimals), 13);
  _variant_t deep = array_of({1L});
  for (int depth = 0; depth < 40; ++depth) deep = array_of({deep});
  expect_error(put(control_.Get(), L"prmDLfunctie", deep), 13);
}

// ---- The texts of numbers

class DisplayText : public Script {
 protected:
  std::wstring text(bool fractions, double& number) {
    _bstr_t answer;
    EXPECT_EQ(code(as<ILPctrl>(control_)->strSoortGetal(fractions ? VARIANT_TRUE : VARIANT_FALSE, &number,
                                                        answer.GetAddress())),
              code(S_OK));
    return answer.length() ? std::wstring(answer) : L"";
  }
};

TEST_F(DisplayText, InDecimalsLeavesTheNumberAsItIs) {
  ASSERT_TRUE(control_);
  double number = 0.1234565;
  EXPECT_EQ(text(false, number), L" 0.123457");
  EXPECT_EQ(number, 0.1234565);
  number = -1234567;
  EXPECT_EQ(text(false, number), L"-1.23E+06");
}

TEST_F(DisplayText, InFractionsMakesTheNumberWhatIsShown) {
  ASSERT_TRUE(control_);
  double number = 0.1 + 0.2;
  ASSERT_NE(number, 0.3);
  EXPECT_EQ(text(true, number), L" 3/10");
  EXPECT_EQ(number, 0.3);
  number = -2.5;
  EXPECT_EQ(text(true, number), L"-2-1/2");
}

TEST_F(DisplayText, IsForScriptsTooWhichLendTheirVariable) {
  ASSERT_TRUE(control_);
  double number = 0.1 + 0.2;
  _variant_t lent, text;
  V_VT(&lent) = VT_R8 | VT_BYREF;
  V_R8REF(&lent) = &number;
  expect_no_error(call(control_.Get(), L"strSoortGetal", {true, lent}, &text));
  EXPECT_STREQ(_bstr_t(text), L" 3/10");
  EXPECT_EQ(number, 0.3);
  expect_no_error(call(control_.Get(), L"strSoortGetal", {false, 0.75}, &text));
  EXPECT_STREQ(_bstr_t(text), L" 0.75");
}

TEST_F(DisplayText, OfAVariableOfAnyTypeIsWrittenBackIntoIt) {
  ASSERT_TRUE(control_);
  _variant_t number(0.1 + 0.2), lent, text;
  V_VT(&lent) = VT_VARIANT | VT_BYREF;
  V_VARIANTREF(&lent) = &number;
  expect_no_error(call(control_.Get(), L"strSoortGetal", {true, lent}, &text));
  EXPECT_STREQ(_bstr_t(text), L" 3/10");
  EXPECT_EQ(V_VT(&number), VT_R8);
  EXPECT_EQ(V_R8(&number), 0.3);
}

}  // namespace
}  // namespace tabulon::client
