// How a control is initialised: from a page's parameters, from a form's stream or storage, or from nothing.

#include "hosts/activex/text.h"
#include "tests/activex/bags.h"
#include "tests/activex/com.h"

namespace tabulon::client {

using activex::narrow;
namespace {

// Lines of a tableau file, from 0.
constexpr std::size_t variables_line = 2, less_equal_line = 4, big_m_line = 7, first_cell_line = 11;

class PageParameters : public ComTest {
 protected:
  // A control that has loaded them. `result` receives the result, which otherwise must be S_OK.
  ComPtr<ILPctrl> load(Bag::Given given, HRESULT* result = nullptr) {
    const ComPtr<IPersistPropertyBag> persist = make_as<IPersistPropertyBag>();
    if (!persist) return nullptr;
    bag_ = Bag::of(std::move(given));
    const HRESULT loaded = persist->Load(bag_.Get(), nullptr);
    if (result)
      *result = loaded;
    else
      EXPECT_EQ(code(loaded), code(S_OK));
    return as<ILPctrl>(persist);
  }
  ComPtr<Bag> bag_;
};

TEST_F(PageParameters, AreAskedForInTheirOrder) {
  load({});
  const std::vector<std::wstring> keys{L"prmNrBeslisVar",
                                       L"prmNrKleinerGelijkVglen",
                                       L"prmNrGroterGelijkVglen",
                                       L"prmNrGelijkVglen",
                                       L"prmBigM",
                                       L"prmSTR_DLfunctie",
                                       L"prmSTR_KleinerGelijkVglen",
                                       L"prmSTR_GroterGelijkVglen",
                                       L"prmSTR_GelijkVglen",
                                       L"prmSTR_RL"};
  EXPECT_EQ(bag_->asked(), keys);
}

TEST_F(PageParameters, ThatAreMissingHaveTheirDefaults) {
  const ComPtr<ILPctrl> control = load({});
  EXPECT_EQ(saved_line(control.Get(), variables_line), " 2 ");
  EXPECT_EQ(saved_line(control.Get(), less_equal_line), " 2 ");
  EXPECT_EQ(saved_line(control.Get(), big_m_line), " 100 ");
}

TEST_F(PageParameters, AsTextsAreRead) {
  const ComPtr<ILPctrl> control = load({{L"prmNrBeslisVar", L"3"},
                                        {L"prmNrKleinerGelijkVglen", L" 1"},
                                        {L"prmBigM", L"-50"},
                                        {L"prmSTR_DLfunctie", L" 7, 1/2, -3"}});
  EXPECT_EQ(saved_line(control.Get(), variables_line), " 3 ");
  EXPECT_EQ(saved_line(control.Get(), less_equal_line), " 1 ");
  EXPECT_EQ(saved_line(control.Get(), big_m_line), "-50 ");
  EXPECT_EQ(saved_line(control.Get(), first_cell_line), " 7");
  EXPECT_EQ(saved_line(control.Get(), first_cell_line + 4), " 1/2");
  EXPECT_EQ(saved_line(control.Get(), first_cell_line + 8), " -3");
}

TEST_F(PageParameters, AsNumbersOfEveryKindAreRead) {
  const ComPtr<ILPctrl> control = load(
      {{L"prmNrBeslisVar", static_cast<short>(3)}, {L"prmNrKleinerGelijkVglen", 4L}, {L"prmBigM", 25.0}});
  EXPECT_EQ(saved_line(control.Get(), variables_line), " 3 ");
  EXPECT_EQ(saved_line(control.Get(), less_equal_line), " 4 ");
  EXPECT_EQ(saved_line(control.Get(), big_m_line), " 25 ");
}

TEST_F(PageParameters, ATruthIsTheNumberThatItIs) {
  EXPECT_EQ(saved_line(load({{L"prmBigM", true}}).Get(), big_m_line), "-1 ");
  EXPECT_EQ(saved_line(load({{L"prmBigM", false}}).Get(), big_m_line), " 0 ");
}

TEST_F(PageParameters, AListMayBeASingleNumber) {
  const ComPtr<ILPctrl> control = load({{L"prmNrBeslisVar", 1L}, {L"prmSTR_DLfunctie", -3L}});
  EXPECT_EQ(saved_line(control.Get(), first_cell_line), "-3");
}

struct BadParameter {
  const char* name;
  const wchar_t* key;
  _variant_t value;
  int number;
};

void PrintTo(const BadParameter& bad, std::ostream* out) {
  *out << bad.name;
}

class BadParameters : public PageParameters, public testing::WithParamInterface<BadParameter> {};

TEST_P(BadParameters, FailTheLoadAndLeaveAControlThatWorks) {
  HRESULT result = S_OK;
  const ComPtr<ILPctrl> control = load({{GetParam().key, GetParam().value}}, &result);
  EXPECT_EQ(code(result), code(run_time_error(GetParam().number)));
  ASSERT_TRUE(control);
  EXPECT_EQ(code(control->put_prmNrBeslisVar(1)), code(S_OK));
  EXPECT_EQ(code(control->put_prmNrKleinerGelijkVglen(1)), code(S_OK));
  EXPECT_EQ(code(control->put_prmNrGroterGelijkVglen(0)), code(S_OK));
  EXPECT_EQ(code(control->put_prmNrGelijkVglen(0)), code(S_OK));
  EXPECT_EQ(code(control->put_prmShow(VARIANT_TRUE)), code(S_OK));
  EXPECT_EQ(code(control->put_prmDLfunctie(_bstr_t(L" -8"))), code(S_OK));
  EXPECT_EQ(saved_line(control.Get(), first_cell_line), " -8");
}

INSTANTIATE_TEST_SUITE_P(
    Values, BadParameters,
    testing::Values(BadParameter{"no_number", L"prmNrBeslisVar", L"drie", 13},
                    BadParameter{"half_a_number", L"prmNrBeslisVar", L"2x", 13},
                    BadParameter{"nothing", L"prmBigM", L"", 13},
                    BadParameter{"beyond_16_bits", L"prmNrKleinerGelijkVglen", L"32768", 6},
                    BadParameter{"a_number_beyond_16_bits", L"prmBigM", 40000L, 6},
                    BadParameter{"a_real_number_beyond_16_bits", L"prmBigM", 1e300, 6},
                    BadParameter{"more_rows_than_there_are", L"prmNrKleinerGelijkVglen", L"11", 9},
                    BadParameter{"more_columns_than_there_are", L"prmNrBeslisVar", L"29", 9}),
    [](const testing::TestParamInfo<BadParameter>& instance) { return std::string(instance.param.name); });

TEST_F(PageParameters, ABadOneIsExplained) {
  HRESULT result = S_OK;
  load({{L"prmNrBeslisVar", L"drie"}}, &result);
  ComPtr<IErrorInfo> info;
  ASSERT_EQ(code(GetErrorInfo(0, info.GetAddressOf())), code(S_OK));
  _bstr_t description;
  EXPECT_HRESULT_SUCCEEDED(info->GetDescription(description.GetAddress()));
  EXPECT_NE(narrow(std::wstring(description)).find("prmNrBeslisVar"), std::string::npos)
      << narrow(std::wstring(description));
}

TEST_F(PageParameters, AreNeverWrittenBack) {
  const ComPtr<ILPctrl> control = load({{L"prmBigM", L"50"}});
  const ComPtr<IPersistPropertyBag> persist = as<IPersistPropertyBag>(control);
  EXPECT_EQ(code(persist->Save(bag_.Get(), TRUE, TRUE)), code(S_OK));
  EXPECT_TRUE(bag_->written().empty());
}

TEST_F(PageParameters, WithoutABagThereIsNothingToRead) {
  const ComPtr<IPersistPropertyBag> persist = make_as<IPersistPropertyBag>();
  ASSERT_TRUE(persist);
  EXPECT_EQ(code(persist->Load(nullptr, nullptr)), code(E_POINTER));
}

TEST_F(PageParameters, AreThoseOfThisClass) {
  const ComPtr<IPersistPropertyBag> persist = make_as<IPersistPropertyBag>();
  ASSERT_TRUE(persist);
  CLSID id{};
  EXPECT_EQ(code(persist->GetClassID(&id)), code(S_OK));
  EXPECT_EQ(id, __uuidof(::LPctrl));
}

// ---- Streams and storages: nothing is kept in them

class Stream : public ComTest {
 protected:
  Stream() { EXPECT_HRESULT_SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, stream_.GetAddressOf())); }
  ULONGLONG size() const {
    STATSTG about{};
    EXPECT_HRESULT_SUCCEEDED(stream_->Stat(&about, STATFLAG_NONAME));
    return about.cbSize.QuadPart;
  }

  ComPtr<IPersistStreamInit> persist_ = make_as<IPersistStreamInit>();
  ComPtr<IStream> stream_;
};

TEST_F(Stream, AControlStartsAnew) {
  ASSERT_TRUE(persist_);
  EXPECT_EQ(code(persist_->InitNew()), code(S_OK));
  EXPECT_EQ(saved_line(as<ILPctrl>(persist_).Get(), variables_line), " 2 ");
}

TEST_F(Stream, AControlIsNeverChangedAndNeedsNoRoom) {
  ASSERT_TRUE(persist_);
  EXPECT_EQ(code(persist_->InitNew()), code(S_OK));
  EXPECT_EQ(code(as<ILPctrl>(persist_)->put_prmBigM(50)), code(S_OK));
  EXPECT_EQ(code(persist_->IsDirty()), code(S_FALSE));
  ULARGE_INTEGER room{};
  room.QuadPart = 77;
  EXPECT_EQ(code(persist_->GetSizeMax(&room)), code(S_OK));
  EXPECT_EQ(room.QuadPart, 0U);
}

TEST_F(Stream, WhatIsSavedCanBeLoaded) {
  ASSERT_TRUE(persist_);
  EXPECT_EQ(code(persist_->InitNew()), code(S_OK));
  EXPECT_EQ(code(persist_->Save(stream_.Get(), TRUE)), code(S_OK));
  EXPECT_EQ(size(), 0U);
  const ComPtr<IPersistStreamInit> other = make_as<IPersistStreamInit>();
  EXPECT_EQ(code(other->Load(stream_.Get())), code(S_OK));
  EXPECT_EQ(saved_line(as<ILPctrl>(other).Get(), variables_line), " 2 ");
}

TEST_F(Stream, AControlIsKeptInAStorageWithItsClass) {
  const ComPtr<IPersistStorage> persist = make_as<IPersistStorage>();
  ASSERT_TRUE(persist);
  ComPtr<IStorage> storage;
  ASSERT_HRESULT_SUCCEEDED(
      StgCreateDocfile(nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE, 0,
                       storage.GetAddressOf()));
  EXPECT_EQ(code(persist->InitNew(storage.Get())), code(S_OK));
  EXPECT_EQ(code(persist->IsDirty()), code(S_FALSE));
  // What containers call to save an object: its class, then the object itself.
  EXPECT_EQ(code(OleSave(persist.Get(), storage.Get(), TRUE)), code(S_OK));
  EXPECT_EQ(code(persist->SaveCompleted(nullptr)), code(S_OK));
  EXPECT_EQ(code(persist->HandsOffStorage()), code(S_OK));

  ComPtr<IUnknown> loaded;
  EXPECT_EQ(
      code(OleLoad(storage.Get(), IID_IUnknown, nullptr, reinterpret_cast<void**>(loaded.GetAddressOf()))),
      code(S_OK));
  const ComPtr<ILPctrl> control = as<ILPctrl>(loaded);
  ASSERT_TRUE(control);
  EXPECT_EQ(saved_line(control.Get(), variables_line), " 2 ");
}

}  // namespace
}  // namespace tabulon::client
