// Connecting event listeners to the control, and disconnecting them.
#include "tests/activex/com.h"
#include "tests/activex/event_listener.h"

namespace tabulon::client {
namespace {

// An object that does not take the events.
class Deaf final : public Double<IUnknown> {};

class Events : public ComTest {
 protected:
  Events() {
    if (container_)
      EXPECT_EQ(code(container_->FindConnectionPoint(__uuidof(_LPctrlEvents), point_.GetAddressOf())),
                code(S_OK));
  }

  ComPtr<IConnectionPointContainer> container_ = make_as<IConnectionPointContainer>();
  ComPtr<IConnectionPoint> point_;
};

TEST_F(Events, HaveTheirPlace) {
  ASSERT_TRUE(point_);
  IID id{};
  EXPECT_EQ(code(point_->GetConnectionInterface(&id)), code(S_OK));
  EXPECT_EQ(id, __uuidof(_LPctrlEvents));
  ComPtr<IConnectionPointContainer> of;
  EXPECT_EQ(code(point_->GetConnectionPointContainer(of.GetAddressOf())), code(S_OK));
  EXPECT_EQ(of.Get(), container_.Get());
}

TEST_F(Events, AreAmongThePlacesThatCanBeListed) {
  ASSERT_TRUE(container_);
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(code(container_->EnumConnectionPoints(points.GetAddressOf())), code(S_OK));
  int found = 0;
  for (ComPtr<IConnectionPoint> each; points->Next(1, each.ReleaseAndGetAddressOf(), nullptr) == S_OK;) {
    IID id{};
    EXPECT_EQ(code(each->GetConnectionInterface(&id)), code(S_OK));
    found += id == __uuidof(_LPctrlEvents);
  }
  EXPECT_EQ(found, 1);
}

TEST_F(Events, ThatItLacksHaveNoPlace) {
  ASSERT_TRUE(container_);
  ComPtr<IConnectionPoint> other = point_;
  EXPECT_EQ(code(container_->FindConnectionPoint(IID_IMoniker, other.GetAddressOf())),
            code(CONNECT_E_NOCONNECTION));
  EXPECT_FALSE(other);
}

TEST_F(Events, AConnectionLastsUntilItIsEnded) {
  ASSERT_TRUE(point_);
  EventListener one, other;
  DWORD first = 0, second = 0;
  EXPECT_EQ(code(point_->Advise(&one, &first)), code(S_OK));
  EXPECT_EQ(code(point_->Advise(&other, &second)), code(S_OK));
  EXPECT_NE(first, second);
  EXPECT_GT(one.references, 1U);

  ComPtr<IEnumConnections> connections;
  EXPECT_EQ(code(point_->EnumConnections(connections.GetAddressOf())), code(S_OK));
  if (connections) {
    int count = 0;
    for (CONNECTDATA each{}; connections->Next(1, &each, nullptr) == S_OK; ++count) each.pUnk->Release();
    EXPECT_EQ(count, 2);
    connections.Reset();
  }

  EXPECT_EQ(code(point_->Unadvise(first)), code(S_OK));
  EXPECT_EQ(one.references, 1U);
  EXPECT_EQ(code(point_->Unadvise(first)), code(CONNECT_E_NOCONNECTION));
  EXPECT_EQ(code(point_->Unadvise(second)), code(S_OK));
  EXPECT_EQ(other.references, 1U);
}

TEST_F(Events, AConnectionEndsWithTheControl) {
  EventListener sink;
  DWORD connection = 0;
  ASSERT_TRUE(point_);
  EXPECT_EQ(code(point_->Advise(&sink, &connection)), code(S_OK));
  point_.Reset();
  container_.Reset();
  EXPECT_EQ(sink.references, 1U);
}

TEST_F(Events, AreForThoseWhoTakeThem) {
  ASSERT_TRUE(point_);
  Deaf deaf;
  DWORD connection = 77;
  EXPECT_EQ(code(point_->Advise(&deaf, &connection)), code(CONNECT_E_CANNOTCONNECT));
  EXPECT_EQ(deaf.references, 1U);
  EXPECT_EQ(code(point_->Advise(nullptr, &connection)), code(E_POINTER));
}

TEST_F(Events, AreNamedByTheClass) {
  ASSERT_TRUE(container_);
  const ComPtr<IProvideClassInfo2> about = as<IProvideClassInfo2>(container_);
  IID id{};
  EXPECT_EQ(code(about->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &id)), code(S_OK));
  EXPECT_EQ(id, __uuidof(_LPctrlEvents));
  EXPECT_HRESULT_FAILED(about->GetGUID(4711, &id));

  ComPtr<ITypeInfo> type;
  EXPECT_EQ(code(about->GetClassInfo(type.GetAddressOf())), code(S_OK));
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(code(type->GetTypeAttr(&attributes)), code(S_OK));
  EXPECT_EQ(attributes->guid, __uuidof(::LPctrl));
  EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
  type->ReleaseTypeAttr(attributes);
}

}  // namespace
}  // namespace tabulon::client
