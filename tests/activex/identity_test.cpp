// The control as a COM object: its interfaces, and that they all belong to one object.
#include "tests/activex/com.h"

namespace tabulon::client {
namespace {

struct Promised {
  const char* name;
  const IID& id;
};

const Promised promised[] = {
    {"IUnknown", IID_IUnknown},
    {"IDispatch", IID_IDispatch},
    {"ILPctrl", __uuidof(ILPctrl)},
    {"IPersist", IID_IPersist},
    {"IPersistPropertyBag", IID_IPersistPropertyBag},
    {"IPersistStreamInit", IID_IPersistStreamInit},
    {"IPersistStorage", IID_IPersistStorage},
    {"IOleObject", IID_IOleObject},
    {"IOleControl", IID_IOleControl},
    {"IOleWindow", IID_IOleWindow},
    {"IOleInPlaceObject", IID_IOleInPlaceObject},
    {"IOleInPlaceActiveObject", IID_IOleInPlaceActiveObject},
    {"IViewObject", IID_IViewObject},
    {"IViewObject2", IID_IViewObject2},
    {"IConnectionPointContainer", IID_IConnectionPointContainer},
    {"IProvideClassInfo", IID_IProvideClassInfo},
    {"IProvideClassInfo2", IID_IProvideClassInfo2},
    {"ISupportErrorInfo", IID_ISupportErrorInfo},
    {"IObjectSafety", IID_IObjectSafety},
};

ComPtr<IUnknown> ask(IUnknown* object, const IID& id) {
  ComPtr<IUnknown> found;
  object->QueryInterface(id, reinterpret_cast<void**>(found.GetAddressOf()));
  return found;
}

class Identity : public ComTest {};

TEST_F(Identity, EveryPromisedInterfaceIsThere) {
  const ComPtr<IUnknown> control = make();
  ASSERT_TRUE(control);
  for (const Promised& each : promised) EXPECT_TRUE(ask(control.Get(), each.id)) << each.name;
}

TEST_F(Identity, EveryInterfaceLeadsToEveryOther) {
  const ComPtr<IUnknown> control = make();
  ASSERT_TRUE(control);
  for (const Promised& one : promised) {
    const ComPtr<IUnknown> from = ask(control.Get(), one.id);
    ASSERT_TRUE(from) << one.name;
    for (const Promised& other : promised)
      EXPECT_TRUE(ask(from.Get(), other.id)) << "from " << one.name << " to " << other.name;
  }
}

TEST_F(Identity, AllInterfacesAreOfOneObject) {
  const ComPtr<IUnknown> control = make();
  ASSERT_TRUE(control);
  const ComPtr<IUnknown> identity = ask(control.Get(), IID_IUnknown);
  for (const Promised& each : promised)
    EXPECT_EQ(ask(ask(control.Get(), each.id).Get(), IID_IUnknown).Get(), identity.Get()) << each.name;
}

TEST_F(Identity, TwoControlsAreTwoObjects) {
  const ComPtr<IUnknown> one = make(), other = make();
  ASSERT_TRUE(one && other);
  EXPECT_NE(ask(one.Get(), IID_IUnknown).Get(), ask(other.Get(), IID_IUnknown).Get());
}

TEST_F(Identity, AnInterfaceThatItLacksLeavesNull) {
  const ComPtr<IUnknown> control = make();
  ASSERT_TRUE(control);
  for (const Promised& each : promised) {
    void* answer = control.Get();
    EXPECT_EQ(code(ask(control.Get(), each.id)->QueryInterface(IID_IMoniker, &answer)), code(E_NOINTERFACE));
    EXPECT_EQ(answer, nullptr) << each.name;
  }
}

TEST_F(Identity, NowhereToPutTheAnswerIsAFailure) {
  const ComPtr<IUnknown> control = make();
  ASSERT_TRUE(control);
  EXPECT_EQ(code(control->QueryInterface(IID_IUnknown, nullptr)), code(E_POINTER));
  EXPECT_EQ(code(control->QueryInterface(IID_IMoniker, nullptr)), code(E_POINTER));
}

TEST_F(Identity, ReferencesAreCountedOverAllInterfaces) {
  ComPtr<IUnknown> control = make();
  ASSERT_TRUE(control);
  IUnknown* const raw = control.Get();
  EXPECT_EQ(raw->AddRef(), 2U);
  void* other = nullptr;
  ASSERT_HRESULT_SUCCEEDED(raw->QueryInterface(IID_IOleObject, &other));
  EXPECT_EQ(static_cast<IUnknown*>(other)->Release(), 2U);
  EXPECT_EQ(raw->Release(), 1U);
  EXPECT_EQ(control.Detach()->Release(), 0U);
}

TEST_F(Identity, ItIsNoPartOfAnotherObject) {
  const ComPtr<IUnknown> outer = make();
  CLSID id{};
  ASSERT_HRESULT_SUCCEEDED(CLSIDFromProgID(L"Tabulon.LPctrl", &id));
  void* inner = outer.Get();
  EXPECT_EQ(code(CoCreateInstance(id, outer.Get(), CLSCTX_INPROC_SERVER, IID_IUnknown, &inner)),
            code(CLASS_E_NOAGGREGATION));
  EXPECT_EQ(inner, nullptr);
}

TEST_F(Identity, TheClassObjectKnowsItsRules) {
  ComPtr<IClassFactory> factory;
  ASSERT_HRESULT_SUCCEEDED(CoGetClassObject(__uuidof(::LPctrl), CLSCTX_INPROC_SERVER, nullptr,
                                            IID_PPV_ARGS(factory.GetAddressOf())));
  void* answer = factory.Get();
  EXPECT_EQ(code(factory->CreateInstance(nullptr, IID_IMoniker, &answer)), code(E_NOINTERFACE));
  EXPECT_EQ(answer, nullptr);
  EXPECT_EQ(code(factory->CreateInstance(nullptr, IID_IUnknown, nullptr)), code(E_POINTER));
  EXPECT_EQ(code(factory->LockServer(TRUE)), code(S_OK));
  EXPECT_EQ(code(factory->LockServer(FALSE)), code(S_OK));
}

TEST_F(Identity, TheLibraryIsNotUnlockedMoreOftenThanLocked) {
  const ComPtr<IUnknown> control = make();
  ASSERT_TRUE(control);
  ComPtr<IClassFactory> factory;
  ASSERT_HRESULT_SUCCEEDED(CoGetClassObject(__uuidof(::LPctrl), CLSCTX_INPROC_SERVER, nullptr,
                                            IID_PPV_ARGS(factory.GetAddressOf())));
  using CanUnload = HRESULT(STDAPICALLTYPE*)();
  const auto can_unload = reinterpret_cast<CanUnload>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"Tabulon.ocx"), "DllCanUnloadNow")));
  ASSERT_TRUE(can_unload);
  for (int times = 0; times < 2; ++times) {
    EXPECT_EQ(code(factory->LockServer(FALSE)), code(E_FAIL));
    EXPECT_EQ(code(can_unload()), code(S_FALSE));
  }
  EXPECT_EQ(code(factory->LockServer(TRUE)), code(S_OK));
  EXPECT_EQ(code(factory->LockServer(FALSE)), code(S_OK));
  EXPECT_EQ(code(factory->LockServer(FALSE)), code(E_FAIL));
}

TEST_F(Identity, TheLibraryHasNoOtherClass) {
  make();
  const HMODULE library = GetModuleHandleW(L"Tabulon.ocx");
  ASSERT_TRUE(library);
  using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const auto get =
      reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
  ASSERT_TRUE(get);
  void* answer = library;
  EXPECT_EQ(code(get(IID_IMoniker, IID_IClassFactory, &answer)), code(CLASS_E_CLASSNOTAVAILABLE));
  EXPECT_EQ(answer, nullptr);
}

TEST_F(Identity, TheLibraryStaysWhileAControlLives) {
  ComPtr<IUnknown> control = make();
  ASSERT_TRUE(control);
  const HMODULE library = GetModuleHandleW(L"Tabulon.ocx");
  ASSERT_TRUE(library);
  using CanUnload = HRESULT(STDAPICALLTYPE*)();
  const auto can_unload =
      reinterpret_cast<CanUnload>(reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
  ASSERT_TRUE(can_unload);
  EXPECT_EQ(code(can_unload()), code(S_FALSE));
  CoFreeUnusedLibrariesEx(0, 0);
  EXPECT_EQ(GetModuleHandleW(L"Tabulon.ocx"), library);
}

}  // namespace
}  // namespace tabulon::client
