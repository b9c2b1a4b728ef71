// What the control tells a browser about its safety.
#include "tests/activex/com.h"

namespace tabulon::client {
namespace {

// IObjectSafety as other languages call it, which can pass a null interface ID.
struct SafetyByPointer : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE get(const IID* about, DWORD* supported, DWORD* enabled) = 0;
  virtual HRESULT STDMETHODCALLTYPE set(const IID* about, DWORD mask, DWORD enabled) = 0;

 protected:
  ~SafetyByPointer() = default;
};

class Safety : public ComTest {
 protected:
  void expect_options(const IID& about, HRESULT result, DWORD enabled) {
    DWORD supported = 0, found = untouched;
    EXPECT_EQ(code(safety_->GetInterfaceSafetyOptions(about, &supported, &found)), code(result));
    EXPECT_EQ(supported, 3U);
    EXPECT_EQ(found, enabled);
  }
  HRESULT set(const IID& about, DWORD mask, DWORD enabled) {
    return safety_->SetInterfaceSafetyOptions(about, mask, enabled);
  }

  static constexpr DWORD untouched = 77;
  ComPtr<IObjectSafety> safety_ = make_as<IObjectSafety>();
};

TEST_F(Safety, IsToldForCallsAndForData) {
  ASSERT_TRUE(safety_);
  expect_options(IID_IDispatch, S_OK, INTERFACESAFE_FOR_UNTRUSTED_CALLER);
  expect_options(IID_IPersistStorage, S_OK, INTERFACESAFE_FOR_UNTRUSTED_DATA);
  expect_options(IID_IPersistStream, S_OK, INTERFACESAFE_FOR_UNTRUSTED_DATA);
  expect_options(IID_IPersistPropertyBag, S_OK, INTERFACESAFE_FOR_UNTRUSTED_DATA);
}

TEST_F(Safety, OfAnotherInterfaceOnlyWhatIsSupportedIsTold) {
  ASSERT_TRUE(safety_);
  expect_options(IID_IOleObject, E_NOINTERFACE, untouched);
  expect_options(IID_IPersistStreamInit, E_NOINTERFACE, untouched);
  expect_options(__uuidof(ILPctrl), E_NOINTERFACE, untouched);
  expect_options(IID_NULL, E_NOINTERFACE, untouched);
}

TEST_F(Safety, OfNoInterfaceWhatIsSupportedIsTold) {
  ASSERT_TRUE(safety_);
  auto* const safety = reinterpret_cast<SafetyByPointer*>(safety_.Get());
  DWORD supported = 0, enabled = untouched;
  EXPECT_EQ(code(safety->get(nullptr, &supported, &enabled)), code(S_OK));
  EXPECT_EQ(supported, 3U);
  EXPECT_EQ(enabled, untouched);
  EXPECT_EQ(code(safety->set(nullptr, 3, 3)), code(S_OK));
}

TEST_F(Safety, ExactlyTheInterfacesOwnOptionCanBeSet) {
  ASSERT_TRUE(safety_);
  for (DWORD mask = 0; mask < 4; ++mask)
    for (DWORD enabled = 0; enabled < 4; ++enabled) {
      const HRESULT calls = (mask & enabled) == 1 ? S_OK : E_FAIL,
                    data = (mask & enabled) == 2 ? S_OK : E_FAIL;
      EXPECT_EQ(code(set(IID_IDispatch, mask, enabled)), code(calls)) << mask << ' ' << enabled;
      EXPECT_EQ(code(set(IID_IPersistStorage, mask, enabled)), code(data)) << mask << ' ' << enabled;
      EXPECT_EQ(code(set(IID_IPersistStream, mask, enabled)), code(data)) << mask << ' ' << enabled;
      EXPECT_EQ(code(set(IID_IPersistPropertyBag, mask, enabled)), code(data)) << mask << ' ' << enabled;
      EXPECT_EQ(code(set(IID_IOleObject, mask, enabled)), code(E_NOINTERFACE)) << mask << ' ' << enabled;
    }
}

TEST_F(Safety, AskingForLessSafetyChangesNothing) {
  ASSERT_TRUE(safety_);
  EXPECT_EQ(code(set(IID_IDispatch, 1, 0)), code(E_FAIL));
  expect_options(IID_IDispatch, S_OK, INTERFACESAFE_FOR_UNTRUSTED_CALLER);
}

}  // namespace
}  // namespace tabulon::client
