// Tests of the control's events: sinks of the connection point, the listener, and what raises them.
#include <gtest/gtest.h>
#include <olectl.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/local_object.h"
#include "tests/browser/class_deletion.h"
#include "tests/windows/base/message_boxes.h"
#include "tests/windows/dialog_closer.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/base/control_ids.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

// Logs each event with its arguments.
class EventSink final : public windows::ComClass<IDispatch> {
 public:
  std::vector<std::string> received;
  std::function<void()> whenNotified;
  HRESULT answer = S_OK;

  STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT*,
                      EXCEPINFO*, UINT*) noexcept override {
    EXPECT_EQ(flags, DISPATCH_METHOD);
    std::string line = std::to_string(id);
    for (UINT i = parameters->cArgs; i > 0; --i) {
      line += " " + Readable(windows::FromVariant(parameters->rgvarg[i - 1]));
    }
    received.push_back(line);
    if (whenNotified) whenNotified();
    return answer;
  }
};

// A late-bound client's object with some of the methods.
class EventListener : public LocalObject<EventListener> {
 public:
  static std::span<const Member<EventListener>> Members() {
    static const std::array members{
        Member<EventListener>{u"SelectionChanged", MemberKind::Method,
                              [](EventListener& listener, Access, std::span<Value> arguments) {
                                listener.received.push_back(Readable(arguments[0]));
                                throw AutomationError(ErrorNumber::Unspecified, u"listener");
                                return Value();
                              },
                              1, 1},
        Member<EventListener>{u"Closing", MemberKind::Method,
                              [](EventListener& listener, Access, std::span<Value>) {
                                listener.received.push_back("closing");
                                return Value();
                              }}};
    return members;
  }
  std::vector<std::string> received;
};

class Events : public ::testing::Test {
 protected:
  ComPtr<IConnectionPoint> Point() const {
    ComPtr<IConnectionPoint> point;
    EXPECT_EQ(host->As<IConnectionPointContainer>()->FindConnectionPoint(DIID__PriceDownEvents,
                                                                         point.put()),
              S_OK);
    return point;
  }
  DWORD Connect(EventSink& one) {
    DWORD cookie = 0;
    EXPECT_EQ(Point()->Advise(&one, &cookie), S_OK);
    EXPECT_NE(cookie, 0U);
    return cookie;
  }
  std::string Heard() const {
    std::string text;
    for (const std::string& line : sink->received) text += line + "\n";
    return text;
  }

  std::unique_ptr<ControlHost> host = std::make_unique<ControlHost>();
  const ComPtr<EventSink> sink = windows::MakeCom<EventSink>();
};

TEST_F(Events, ReportTheSelectedClassAndTheEnd) {
  Connect(*sink.get());
  host->Open();
  EXPECT_EQ(Heard(), "1 \"01\"\n");
  host->Close();
  EXPECT_EQ(Heard(), "1 \"01\"\n3\n");
  host->LeaveSite();
  EXPECT_EQ(Heard(), "1 \"01\"\n3\n");
}

TEST_F(Events, ReportAFailureOfACommandOfTheUser) {
  host->Open();
  Connect(*sink.get());
  const DialogCloser ok;
  host->world.factory.Object(u"ZEPEBCGLView.GLData")
      .On(u"AccessCheck", Reply::Failing(static_cast<std::int32_t>(0x80040123), u"没有连接"));
  SendMessageW(GetDlgItem(host->Window(), windows::control_ids::kTree), WM_KEYDOWN, VK_DELETE, 1);
  EXPECT_EQ(Heard(), "4 -2147221213 \"没有连接\" \"ZEPEBCGLView.GLData.AccessCheck\"\n");
}

TEST_F(Events, ReportNoFailureOfACommandInWhichTheControlEnds) {
  host->Open();
  Connect(*sink.get());
  const MessageBoxes boxes;
  host->world.factory.Object(u"ZEPEBCGLView.GLData")
      .On(u"AccessCheck", Reply::From([this](auto) -> Value {
            host->Close();
            throw AutomationError(ErrorNumber::Unspecified, u"没有连接");
          }));
  SendMessageW(GetDlgItem(host->Window(), windows::control_ids::kTree), WM_KEYDOWN, VK_DELETE, 1);
  EXPECT_EQ(Heard(), "3\n");
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(Events, NameTheLibraryAsTheSourceOfItsOwnFailures) {
  host->Open();
  Connect(*sink.get());
  const DialogCloser ok;
  host->world.factory.Object(u"ZEPEBCGLView.GLData").On(u"AccessCheck", Reply(u"也许"));
  SendMessageW(GetDlgItem(host->Window(), windows::control_ids::kTree), WM_KEYDOWN, VK_DELETE, 1);
  EXPECT_EQ(Heard(), "4 -2147352571 \"类型不匹配\" \"ZEPPriceDownPrepare\"\n");
}

TEST_F(Events, ReportADeletedClassBeforeTheTreeIsLoadedAgain) {
  host->Open();
  for (const auto statement : {kVoucher, kHistory}) {
    AnswerStatement(host->world.factory, statement, Rows({u"FItemID"}, {}));
  }
  for (const auto statement : {kDeleteProvision, kDeleteClass}) {
    AnswerNothing(host->world.factory, statement);
  }
  Connect(*sink.get());
  std::string callsBefore;
  sink->whenNotified = [&] {
    if (callsBefore.empty()) callsBefore = host->world.log.Lines().back();
  };
  MessageBoxes boxes;
  boxes.WillPress({IDYES});
  EXPECT_EQ(Statement(host->control.get(), L"delRecord"), "S_OK");
  EXPECT_EQ(boxes.All().size(), 1U);
  EXPECT_EQ(Heard(), "2 3 \"01\"\n1 \"\"\n");
  EXPECT_EQ(callsBefore, "release ZEPConnection.AppConnection");
}

TEST_F(Events, ReachEverySinkAfterAnyAnswerOfOne) {
  sink->answer = E_FAIL;
  const auto second = windows::MakeCom<EventSink>();
  Connect(*sink.get());
  Connect(*second.get());
  host->Open();
  EXPECT_EQ(sink->received, second->received);
  EXPECT_EQ(second->received.size(), 1U);
}

TEST_F(Events, ReachNoSinkThatHasLeft) {
  const DWORD cookie = Connect(*sink.get());
  EXPECT_EQ(Point()->Unadvise(cookie), S_OK);
  EXPECT_EQ(Point()->Unadvise(cookie), CONNECT_E_NOCONNECTION);
  host->Open();
  EXPECT_EQ(Heard(), "");
}

// A sink need not count its references: it may exist no more once it is disconnected.
TEST_F(Events, ReachNoSinkThatAnotherDisconnectsInsideTheEvent) {
  const auto second = windows::MakeCom<EventSink>();
  Connect(*sink.get());
  const DWORD cookie = Connect(*second.get());
  sink->whenNotified = [&] {
    sink->whenNotified = nullptr;
    EXPECT_EQ(Point()->Unadvise(cookie), S_OK);
  };
  host->Open();
  EXPECT_EQ(sink->received.size(), 1U);
  EXPECT_EQ(second->received.size(), 0U);
}

TEST_F(Events, AreNotSentWhileTheContainerFreezesThem) {
  Connect(*sink.get());
  const auto control = host->As<IOleControl>();
  EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
  host->Open();
  EXPECT_EQ(Heard(), "");
  EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
  host->Close();
  EXPECT_EQ(Heard(), "3\n");
}

TEST_F(Events, AreSentToTheNextContainerOfOneThatLeftThemFrozen) {
  Connect(*sink.get());
  EXPECT_EQ(host->As<IOleControl>()->FreezeEvents(TRUE), S_OK);
  EXPECT_EQ(host->SetSite(), S_OK);
  EXPECT_EQ(host->LeaveSite(), S_OK);
  EXPECT_EQ(Heard(), "");
  host->Open();
  EXPECT_EQ(Heard(), "1 \"01\"\n");
}

TEST_F(Events, MayEndTheControlInsideAnEvent) {
  Connect(*sink.get());
  sink->whenNotified = [&] {
    sink->whenNotified = nullptr;
    host->Close();
    host->LeaveSite();
    host->Release();
  };
  EXPECT_EQ(host->SetSite(), S_OK);
  EXPECT_EQ(host->DoVerb(OLEIVERB_SHOW), S_OK);
  const ComPtr<_PriceDown> early = host->As<_PriceDown>();
  VARIANT_BOOL shown = VARIANT_FALSE;
  EXPECT_EQ(early->Show(nullptr, &shown), S_OK);
  EXPECT_EQ(shown, VARIANT_TRUE);
  EXPECT_EQ(Heard(), "1 \"01\"\n3\n");
}

TEST_F(Events, ReachALateBoundListenerByName) {
  const auto listener = std::make_shared<EventListener>();
  const auto object = windows::ToDispatch(listener);
  EXPECT_EQ(Assignment(host->control.get(), L"Listener", ObjectOf(object.get())), "S_OK");
  EXPECT_EQ(Expression(host->control.get(), L"Listener").substr(0, 4), "S_OK");
  host->Open();
  host->Close();
  EXPECT_EQ(listener->received, (std::vector<std::string>{"\"01\"", "closing"}));
  ComPtr<IDispatch> kept;
  EXPECT_EQ(host->As<_PriceDownState>()->get_Listener(kept.put()), S_OK);
  EXPECT_FALSE(kept);
}

TEST_F(Events, ReachTheListenerThatAnEarlyBoundClientHasSet) {
  const auto listener = std::make_shared<EventListener>();
  const auto object = windows::ToDispatch(listener);
  const auto state = host->As<_PriceDownState>();
  EXPECT_EQ(state->putref_Listener(object.get()), S_OK);
  host->Open();
  EXPECT_EQ(listener->received, (std::vector<std::string>{"\"01\""}));
  EXPECT_EQ(state->put_Listener(nullptr), S_OK);
  host->Close();
  EXPECT_EQ(listener->received.size(), 1U);
}

TEST_F(Events, ReachAListenerThatWasSetBetweenTwoLives) {
  const auto listener = std::make_shared<EventListener>();
  const auto object = windows::ToDispatch(listener);
  host->Open();
  host->Close();
  EXPECT_EQ(Assignment(host->control.get(), L"Listener", ObjectOf(object.get())), "S_OK");
  EXPECT_EQ(host->DoVerb(OLEIVERB_SHOW), S_OK);
  EXPECT_EQ(Expression(host->control.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
  EXPECT_EQ(listener->received, (std::vector<std::string>{"\"01\""}));
}

TEST_F(Events, HaveOneConnectionPointThatListsItsSinks) {
  const DWORD cookie = Connect(*sink.get());
  const auto container = host->As<IConnectionPointContainer>();
  ComPtr<IEnumConnectionPoints> points;
  ASSERT_EQ(container->EnumConnectionPoints(points.put()), S_OK);
  ComPtr<IConnectionPoint> point;
  ULONG fetched = 0;
  EXPECT_EQ(points->Next(1, point.put(), &fetched), S_OK);
  ComPtr<IConnectionPoint> none;
  EXPECT_EQ(points->Next(1, none.put(), &fetched), S_FALSE);
  IID id{};
  EXPECT_EQ(point->GetConnectionInterface(&id), S_OK);
  EXPECT_TRUE(IsEqualGUID(id, DIID__PriceDownEvents));
  ComPtr<IConnectionPointContainer> back;
  EXPECT_EQ(point->GetConnectionPointContainer(back.put()), S_OK);
  EXPECT_EQ(back.get(), container.get());
  EXPECT_FALSE(point.As<IOleObject>());
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(point->EnumConnections(connections.put()), S_OK);
  CONNECTDATA data{};
  EXPECT_EQ(connections->Next(1, &data, nullptr), S_OK);
  EXPECT_EQ(data.dwCookie, cookie);
  data.pUnk->Release();
}

TEST_F(Events, RefuseWhatIsNoSink) {
  DWORD cookie = 5;
  EXPECT_EQ(Point()->Advise(nullptr, &cookie), E_POINTER);
  EXPECT_EQ(cookie, 0U);
  EXPECT_EQ(Point()->Advise(sink.get(), nullptr), E_POINTER);
  const auto factory = host->library.ClassObject(CLSID_updatePrice);
  EXPECT_EQ(Point()->Advise(factory.get(), &cookie), CONNECT_E_CANNOTCONNECT);
  ComPtr<IConnectionPoint> point;
  EXPECT_EQ(host->As<IConnectionPointContainer>()->FindConnectionPoint(IID_IDispatch, point.put()),
            CONNECT_E_NOCONNECTION);
}

}  // namespace
}  // namespace pricedown::testing
