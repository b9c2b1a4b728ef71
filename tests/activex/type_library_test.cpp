// The type library: what development tools learn about the control.
#include <filesystem>

#include "tests/activex/com.h"

namespace tabulon::client {
namespace {

constexpr GUID library_id{0xB4A6D0F3, 0x21C8, 0x4B0B, {0x8E, 0x57, 0x6C, 0x1F, 0x0A, 0x94, 0xD2, 0xE7}};

struct Member {
  std::wstring name;
  DISPID id;
  INVOKEKIND kind;
  VARTYPE first_argument;  // VT_EMPTY when there is none
};

class TypeLibrary : public ComTest {
 protected:
  TypeLibrary() {
    EXPECT_EQ(code(LoadRegTypeLib(library_id, 1, 0, LOCALE_NEUTRAL, library_.GetAddressOf())), code(S_OK));
  }
  ComPtr<ITypeInfo> type(const GUID& id) {
    ComPtr<ITypeInfo> found;
    if (library_) EXPECT_EQ(code(library_->GetTypeInfoOfGuid(id, found.GetAddressOf())), code(S_OK));
    return found;
  }
  static std::wstring name_of(ITypeInfo* type, MEMBERID id) {
    _bstr_t name;
    EXPECT_EQ(code(type->GetDocumentation(id, name.GetAddress(), nullptr, nullptr, nullptr)), code(S_OK));
    return {static_cast<const wchar_t*>(name)};
  }
  static std::vector<Member> members(ITypeInfo* type) {
    std::vector<Member> found;
    TYPEATTR* attributes = nullptr;
    if (!type || FAILED(type->GetTypeAttr(&attributes))) return found;
    for (UINT at = 0; at < attributes->cFuncs; ++at) {
      FUNCDESC* function = nullptr;
      if (FAILED(type->GetFuncDesc(at, &function))) break;
      const bool own = !(function->wFuncFlags & FUNCFLAG_FRESTRICTED);
      if (own)
        found.push_back({name_of(type, function->memid), function->memid, function->invkind,
                         function->cParams ? function->lprgelemdescParam[0].tdesc.vt : VARTYPE{VT_EMPTY}});
      type->ReleaseFuncDesc(function);
    }
    type->ReleaseTypeAttr(attributes);
    return found;
  }

  ComPtr<ITypeLib> library_;
};

TEST_F(TypeLibrary, HasItsName) {
  ASSERT_TRUE(library_);
  _bstr_t name;
  EXPECT_EQ(code(library_->GetDocumentation(MEMBERID_NIL, name.GetAddress(), nullptr, nullptr, nullptr)),
            code(S_OK));
  EXPECT_STREQ(name, L"Tabulon");
}

TEST_F(TypeLibrary, ThePropertiesAreForWritingOnlyAndTheMethodsFollow) {
  const std::vector<Member> found = members(type(__uuidof(ILPctrl)).Get());
  const struct {
    const wchar_t* name;
    VARTYPE argument;
  } properties[] = {{L"prmNrBeslisVar", VT_I2},
                    {L"prmNrKleinerGelijkVglen", VT_I2},
                    {L"prmNrGroterGelijkVglen", VT_I2},
                    {L"prmNrGelijkVglen", VT_I2},
                    {L"prmBigM", VT_I2},
                    {L"prmShow", VT_BOOL},
                    {L"prmDLfunctie", VT_BSTR},
                    {L"prmKleinerGelijkVglen", VT_BSTR},
                    {L"prmGroterGelijkVglen", VT_BSTR},
                    {L"prmGelijkVglen", VT_BSTR},
                    {L"prmRL", VT_BSTR}};
  const wchar_t* const methods[] = {L"InitTableau",    L"strSoortGetal",      L"ShowAboutBox",
                                    L"ShowfrmMelding", L"ShowfrmFoutmelding", L"ShowfrmPivotelement",
                                    L"SchrijfTableau", L"LeesTableau"};
  ASSERT_EQ(found.size(), std::size(properties) + std::size(methods));
  std::size_t at = 0;
  for (const auto& property : properties) {
    EXPECT_EQ(found[at].name, property.name);
    EXPECT_EQ(found[at].kind, INVOKE_PROPERTYPUT) << at;
    EXPECT_EQ(found[at].first_argument, property.argument) << at;
    ++at;
  }
  for (const wchar_t* const method : methods) {
    EXPECT_EQ(found[at].name, method);
    EXPECT_EQ(found[at].kind, INVOKE_FUNC) << at;
    ++at;
  }
}

TEST_F(TypeLibrary, NoTwoMembersShareANumber) {
  const std::vector<Member> found = members(type(__uuidof(ILPctrl)).Get());
  for (std::size_t one = 0; one < found.size(); ++one)
    for (std::size_t other = 0; other < one; ++other) EXPECT_NE(found[one].id, found[other].id) << one;
}

TEST_F(TypeLibrary, EveryMemberIsReachedByItsName) {
  const ComPtr<IDispatch> control = make_as<IDispatch>();
  ASSERT_TRUE(control);
  for (const Member& each : members(type(__uuidof(ILPctrl)).Get()))
    EXPECT_EQ(dispid_of(control.Get(), each.name.c_str()), each.id);
}

// Which this system may not be able to run, but any can read.
TEST_F(TypeLibrary, IsInTheFileFor32BitProgramsToo) {
  make();
  wchar_t path[MAX_PATH]{};
  ASSERT_NE(GetModuleFileNameW(GetModuleHandleW(L"Tabulon.ocx"), path, MAX_PATH), 0U);
  const std::wstring folder = std::filesystem::path(path).parent_path().parent_path();
  ComPtr<ITypeLib> other;
  ASSERT_EQ(code(LoadTypeLibEx((folder + L"\\x86\\Tabulon.ocx").c_str(), REGKIND_NONE, other.GetAddressOf())),
            code(S_OK));
  TLIBATTR* attributes = nullptr;
  ASSERT_EQ(code(other->GetLibAttr(&attributes)), code(S_OK));
  EXPECT_EQ(attributes->guid, library_id);
  EXPECT_EQ(attributes->syskind, SYS_WIN32);
  other->ReleaseTLibAttr(attributes);
  ComPtr<ITypeInfo> script;
  ASSERT_EQ(code(other->GetTypeInfoOfGuid(__uuidof(ILPctrl), script.GetAddressOf())), code(S_OK));
  std::vector<std::wstring> here, there;
  for (const Member& each : members(type(__uuidof(ILPctrl)).Get())) here.push_back(each.name);
  for (const Member& each : members(script.Get())) there.push_back(each.name);
  EXPECT_EQ(there, here);
}

TEST_F(TypeLibrary, TheControlShowsTheSameType) {
  const ComPtr<IDispatch> control = make_as<IDispatch>();
  ASSERT_TRUE(control);
  UINT count = 0;
  EXPECT_EQ(code(control->GetTypeInfoCount(&count)), code(S_OK));
  EXPECT_EQ(count, 1U);
  ComPtr<ITypeInfo> shown;
  ASSERT_EQ(code(control->GetTypeInfo(0, LOCALE_NEUTRAL, shown.GetAddressOf())), code(S_OK));
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(code(shown->GetTypeAttr(&attributes)), code(S_OK));
  EXPECT_EQ(attributes->guid, __uuidof(ILPctrl));
  shown->ReleaseTypeAttr(attributes);
  EXPECT_EQ(code(control->GetTypeInfo(1, LOCALE_NEUTRAL, shown.ReleaseAndGetAddressOf())),
            code(DISP_E_BADINDEX));
}

TEST_F(TypeLibrary, TheEventsHaveTheNumbersThatFormsKnow) {
  const ComPtr<ITypeInfo> events = type(__uuidof(_LPctrlEvents));
  ASSERT_TRUE(events);
  std::vector<std::pair<std::wstring, DISPID>> found;
  for (const Member& each : members(events.Get())) found.emplace_back(each.name, each.id);
  const std::vector<std::pair<std::wstring, DISPID>> wanted{
      {L"Click", DISPID_CLICK},         {L"DblClick", DISPID_DBLCLICK}, {L"KeyDown", DISPID_KEYDOWN},
      {L"KeyPress", DISPID_KEYPRESS},   {L"KeyUp", DISPID_KEYUP},       {L"MouseDown", DISPID_MOUSEDOWN},
      {L"MouseMove", DISPID_MOUSEMOVE}, {L"MouseUp", DISPID_MOUSEUP}};
  EXPECT_EQ(found, wanted);
}

TEST_F(TypeLibrary, TheClassNamesItsInterfaceAndItsEvents) {
  const ComPtr<ITypeInfo> of_class = type(__uuidof(::LPctrl));
  ASSERT_TRUE(of_class);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(code(of_class->GetTypeAttr(&attributes)), code(S_OK));
  EXPECT_EQ(attributes->cImplTypes, 2);
  EXPECT_TRUE(attributes->wTypeFlags & TYPEFLAG_FCONTROL);
  of_class->ReleaseTypeAttr(attributes);
  int flags = 0;
  EXPECT_EQ(code(of_class->GetImplTypeFlags(0, &flags)), code(S_OK));
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
  EXPECT_EQ(code(of_class->GetImplTypeFlags(1, &flags)), code(S_OK));
  EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);
}

}  // namespace
}  // namespace tabulon::client
