// Ten thousand controls, one after the other, leave nothing behind.
#include "tests/activex/bags.h"
#include "tests/activex/com.h"
#include "tests/activex/resources.h"

namespace tabulon::client {
namespace {

class LongLife : public ComTest {
 protected:
  void use_one() {
    const ComPtr<IPersistPropertyBag> persist = make_as<IPersistPropertyBag>();
    ASSERT_TRUE(persist);
    const ComPtr<Bag> bag = Bag::of({{L"prmNrBeslisVar", L"3"}, {L"prmSTR_DLfunctie", L" 1, 2, 3"}});
    ASSERT_EQ(code(persist->Load(bag.Get(), nullptr)), code(S_OK));
    const ComPtr<ILPctrl> control = as<ILPctrl>(persist);
    ASSERT_EQ(code(control->put_prmRL(_bstr_t(L" 1, 2"))), code(S_OK));
    const ScriptError error = call(control.Get(), L"LeesTableau", {L"?"});
    ASSERT_EQ(code(error.info.scode), code(run_time_error(52)));
    const HDC dc = CreateCompatibleDC(nullptr);
    const RECTL box{0, 0, 60, 30};
    ASSERT_EQ(code(as<IViewObject2>(persist)->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &box,
                                                   nullptr, nullptr, 0)),
              code(S_OK));
    DeleteDC(dc);
    ASSERT_EQ(code(as<IOleObject>(persist)->Close(OLECLOSE_NOSAVE)), code(S_OK));
  }
  void use(int count) {
    for (int at = 0; at < count && !HasFatalFailure(); ++at) use_one();
  }
};

TEST_F(LongLife, NothingIsLeftOfTenThousandControls) {
  use(500);  // fonts and tables that are made once
  const Resources before = resources_now();
  use(10'000);
  const Resources after = resources_now();
  EXPECT_LE(after.drawing_object, before.drawing_object + 100);
  EXPECT_LE(after.windows, before.windows);
  EXPECT_LE(after.handle, before.handle + 400);
  EXPECT_LE(after.bytes, before.bytes + 2'000'000);
}

}  // namespace
}  // namespace tabulon::client
