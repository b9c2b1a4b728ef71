// The control as an OLE object on a container's form.
#include "tests/activex/com.h"
#include "tests/activex/viewer.h"

namespace tabulon::client {
namespace {

// 9000 by 4440 twips, in hundredths of a millimetre: 1440 twips are 2540 of them.
constexpr SIZEL fixed_size{15875, 7832};

class OleObject : public ComTest {
 protected:
  void expect_fixed_size() {
    SIZEL size{};
    EXPECT_EQ(code(object_->GetExtent(DVASPECT_CONTENT, &size)), code(S_OK));
    EXPECT_EQ(size.cx, fixed_size.cx);
    EXPECT_EQ(size.cy, fixed_size.cy);
  }

  ComPtr<IOleObject> object_ = make_as<IOleObject>();
};

TEST_F(OleObject, HasItsOneSize) {
  ASSERT_TRUE(object_);
  expect_fixed_size();
}

TEST_F(OleObject, CannotBeMadeLargerOrSmaller) {
  ASSERT_TRUE(object_);
  for (SIZEL wanted : {SIZEL{30000, 7832}, SIZEL{100, 100}, SIZEL{0, 0}, SIZEL{-1, -1}}) {
    EXPECT_EQ(code(object_->SetExtent(DVASPECT_CONTENT, &wanted)), code(E_FAIL)) << wanted.cx;
    expect_fixed_size();
  }
}

TEST_F(OleObject, HasOneAspect) {
  ASSERT_TRUE(object_);
  SIZEL size{};
  EXPECT_EQ(code(object_->GetExtent(DVASPECT_ICON, &size)), code(DV_E_DVASPECT));
  EXPECT_EQ(code(object_->GetExtent(DVASPECT_CONTENT, nullptr)), code(E_POINTER));
}

TEST_F(OleObject, IsAControlThatIsActiveWhenItIsSeen) {
  ASSERT_TRUE(object_);
  DWORD status = 0;
  EXPECT_EQ(code(object_->GetMiscStatus(DVASPECT_CONTENT, &status)), code(S_OK));
  for (const LONG bit :
       {LONG{OLEMISC_RECOMPOSEONRESIZE}, LONG{OLEMISC_CANTLINKINSIDE}, LONG{OLEMISC_INSIDEOUT},
        LONG{OLEMISC_ACTIVATEWHENVISIBLE}, LONG{OLEMISC_SETCLIENTSITEFIRST}})
    EXPECT_TRUE(static_cast<LONG>(status) & bit) << bit;
}

TEST_F(OleObject, NamesItsVerbs) {
  ASSERT_TRUE(object_);
  ComPtr<IEnumOLEVERB> verbs;
  const HRESULT result = object_->EnumVerbs(verbs.GetAddressOf());
  if (result == OLE_S_USEREG) {
    EXPECT_EQ(code(OleRegEnumVerbs(__uuidof(::LPctrl), verbs.GetAddressOf())), code(S_OK));
  } else {
    EXPECT_EQ(code(result), code(S_OK));
  }
  ASSERT_TRUE(verbs);
  OLEVERB verb{};
  ULONG count = 0;
  EXPECT_EQ(code(verbs->Next(1, &verb, &count)), code(S_OK));
  EXPECT_EQ(count, 1U);
  CoTaskMemFree(verb.lpszVerbName);
}

TEST_F(OleObject, IsOfItsClass) {
  ASSERT_TRUE(object_);
  CLSID id{};
  EXPECT_EQ(code(object_->GetUserClassID(&id)), code(S_OK));
  EXPECT_EQ(id, __uuidof(::LPctrl));
  LPOLESTR name = nullptr;
  EXPECT_HRESULT_SUCCEEDED(object_->GetUserType(USERCLASSTYPE_FULL, &name));
  ASSERT_TRUE(name);
  EXPECT_STRNE(name, L"");
  CoTaskMemFree(name);
}

TEST_F(OleObject, TellsWhoListensThatItCloses) {
  ASSERT_TRUE(object_);
  Viewer listener;
  DWORD connection = 0;
  EXPECT_EQ(code(object_->Advise(&listener, &connection)), code(S_OK));
  EXPECT_NE(connection, 0U);
  EXPECT_EQ(code(object_->Close(OLECLOSE_NOSAVE)), code(S_OK));
  EXPECT_EQ(listener.closed, 1);
  EXPECT_EQ(code(object_->Unadvise(connection)), code(S_OK));
  EXPECT_EQ(listener.references, 1U);
  EXPECT_EQ(code(object_->Unadvise(connection)), code(OLE_E_NOCONNECTION));
}

TEST_F(OleObject, TellsWhoLooksThatItHasChanged) {
  ASSERT_TRUE(object_);
  EXPECT_EQ(code(as<IPersistStreamInit>(object_)->InitNew()), code(S_OK));
  const ComPtr<IViewObject2> view = as<IViewObject2>(object_);
  Viewer listener;
  EXPECT_EQ(code(view->SetAdvise(DVASPECT_CONTENT, 0, &listener)), code(S_OK));
  ComPtr<IAdviseSink> found;
  DWORD aspects = 0, flags = 77;
  EXPECT_EQ(code(view->GetAdvise(&aspects, &flags, found.GetAddressOf())), code(S_OK));
  EXPECT_EQ(found.Get(), &listener);
  EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));
  EXPECT_EQ(flags, 0U);
  EXPECT_EQ(code(as<ILPctrl>(object_)->put_prmDLfunctie(_bstr_t(L" 1, 2"))), code(S_OK));
  EXPECT_GE(listener.view_changes, 1);
  found.Reset();
  EXPECT_EQ(code(view->SetAdvise(DVASPECT_CONTENT, 0, nullptr)), code(S_OK));
  EXPECT_EQ(listener.references, 1U);
}

TEST_F(OleObject, KeepsTheSiteThatItIsGiven) {
  ASSERT_TRUE(object_);
  ComPtr<IOleClientSite> site;
  EXPECT_EQ(code(object_->GetClientSite(site.GetAddressOf())), code(S_OK));
  EXPECT_FALSE(site);
  EXPECT_EQ(code(object_->SetClientSite(nullptr)), code(S_OK));
  EXPECT_EQ(code(object_->SetHostNames(L"Container", L"Document")), code(S_OK));
}

TEST_F(OleObject, CannotBeActivatedNowhere) {
  ASSERT_TRUE(object_);
  EXPECT_HRESULT_FAILED(object_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, nullptr, 0, nullptr, nullptr));
}

TEST_F(OleObject, AVerbThatItLacksIsNoneOfIts) {
  ASSERT_TRUE(object_);
  EXPECT_HRESULT_FAILED(object_->DoVerb(-4711, nullptr, nullptr, 0, nullptr, nullptr));
}

TEST_F(OleObject, HasNoWindowBeforeItIsActive) {
  ASSERT_TRUE(object_);
  HWND window = GetDesktopWindow();
  EXPECT_EQ(code(as<IOleInPlaceObject>(object_)->GetWindow(&window)), code(E_FAIL));
}

TEST_F(OleObject, HearsOfTheContainersProperties) {
  ASSERT_TRUE(object_);
  const ComPtr<IOleControl> control = as<IOleControl>(object_);
  EXPECT_EQ(code(control->OnAmbientPropertyChange(DISPID_UNKNOWN)), code(S_OK));
  EXPECT_EQ(code(control->FreezeEvents(TRUE)), code(S_OK));
  EXPECT_EQ(code(control->FreezeEvents(FALSE)), code(S_OK));
  CONTROLINFO info{};
  info.cb = sizeof info;
  EXPECT_HRESULT_SUCCEEDED(control->GetControlInfo(&info));
}

}  // namespace
}  // namespace tabulon::client
