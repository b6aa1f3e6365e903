// Tests of ambient properties: missing, of unexpected types, changed, and of what a control in
// design mode must not do.
#include <gtest/gtest.h>
#include <olectl.h>

#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "windows/base/control_ids.h"
#include "windows/com/bstr.h"
#include "windows/com/safe_array.h"
#include "windows/com/variant.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

using windows::Bstr;
using windows::ComClass;
using windows::ComPtr;
using windows::MakeCom;
using windows::Variant;

// All that have a number, but the user mode.
constexpr DISPID kOtherProperties[] = {
    DISPID_AMBIENT_BACKCOLOR,         DISPID_AMBIENT_DISPLAYNAME,  DISPID_AMBIENT_FONT,
    DISPID_AMBIENT_FORECOLOR,         DISPID_AMBIENT_LOCALEID,     DISPID_AMBIENT_MESSAGEREFLECT,
    DISPID_AMBIENT_SCALEUNITS,        DISPID_AMBIENT_TEXTALIGN,    DISPID_AMBIENT_UIDEAD,
    DISPID_AMBIENT_SHOWGRABHANDLES,   DISPID_AMBIENT_SHOWHATCHING, DISPID_AMBIENT_DISPLAYASDEFAULT,
    DISPID_AMBIENT_SUPPORTSMNEMONICS, DISPID_AMBIENT_AUTOCLIP};

const char* const kCreationLine = "create ZEPCBSSystemData.AisInfo";

// A client site and nothing else: no ambient properties, no window.
class BareSite final : public ComClass<IOleClientSite> {
 public:
  STDMETHODIMP SaveObject() noexcept override { return Unexpected("SaveObject"); }
  STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) noexcept override {
    return Unexpected("GetMoniker");
  }
  STDMETHODIMP GetContainer(IOleContainer**) noexcept override {
    return Unexpected("GetContainer");
  }
  STDMETHODIMP ShowObject() noexcept override { return Unexpected("ShowObject"); }
  STDMETHODIMP OnShowWindow(BOOL) noexcept override { return Unexpected("OnShowWindow"); }
  STDMETHODIMP RequestNewObjectLayout() noexcept override {
    return Unexpected("RequestNewObjectLayout");
  }

 private:
  HRESULT Unexpected(const char* call) noexcept {
    ADD_FAILURE() << "unexpected call of the container: " << call;
    return E_NOTIMPL;
  }
};

LRESULT TreeFont(const ControlHost& host) {
  return SendMessageW(GetDlgItem(host.Window(), ids::kTree), WM_GETFONT, 0, 0);
}

TEST(AmbientProperties, OfAppearanceAndLanguageAreIgnored) {
  ControlHost host;
  host.Open();
  const LRESULT font = TreeFont(host);
  host.world.log.Clear();
  const auto control = host.As<IOleControl>();
  // The site fails the test if any of them is requested.
  for (const DISPID property : kOtherProperties) {
    EXPECT_EQ(control->OnAmbientPropertyChange(property), S_OK) << property;
  }
  EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
  EXPECT_EQ(control->OnAmbientPropertyChange(12345), S_OK);
  EXPECT_EQ(host.world.log.Text(), "");
  EXPECT_EQ(TreeFont(host), font);
}

TEST(AmbientProperties, MayChangeWithoutAContainer) {
  ControlHost host;
  const auto control = host.As<IOleControl>();
  EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
  EXPECT_FALSE(host.SuiteWasCalled());
}

TEST(AmbientProperties, OfAnUnexpectedTypeMeanRunMode) {
  for (const Value& odd : {Value(), Value(Null{}), Value(std::int32_t{0}), Value(u"False"),
                           Value(0.0), Value(nullptr)}) {
    ControlHost host;
    host.site->userMode = odd;
    EXPECT_EQ(host.SetSite(), S_OK) << Readable(odd);
    EXPECT_EQ(host.world.log.Count(kCreationLine), 1U) << Readable(odd);
  }
}

TEST(AmbientProperties, MayBeMissingAltogether) {
  ControlHost host;
  const auto site = MakeCom<BareSite>();
  const auto object = host.As<IOleObject>();
  EXPECT_EQ(object->SetClientSite(site.get()), S_OK);
  EXPECT_EQ(host.world.log.Count(kCreationLine), 1U);
  EXPECT_EQ(Hexadecimal(host.DoVerb(OLEIVERB_SHOW)), "80004002");
  EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
  EXPECT_EQ(Statement(host.control.get(), L"ModelCurrent"), "S_OK");
  EXPECT_EQ(host.Close(), S_OK);
  EXPECT_EQ(object->SetClientSite(nullptr), S_OK);
  EXPECT_EQ(site->AddRef(), 2U);
  EXPECT_EQ(site->Release(), 1U);
}

// A control on a form that is being designed, active in place as some designers make it.
class InDesignMode : public ::testing::Test {
 protected:
  InDesignMode() {
    host.site->userMode = false;
    EXPECT_EQ(host.SetSite(), S_OK);
    EXPECT_EQ(host.DoVerb(OLEIVERB_UIACTIVATE), S_OK);
  }
  ~InDesignMode() override {
    if (!designed) return;
    EXPECT_EQ(host.Close(), S_OK);
    EXPECT_EQ(host.LeaveSite(), S_OK);
    host.Release();
    EXPECT_FALSE(host.SuiteWasCalled()) << host.world.log.Text();
  }

  HWND Child(int id) const { return GetDlgItem(host.Window(), id); }
  // The window that receives a click in the middle of the control.
  HWND Hit() const {
    RECT area{};
    GetWindowRect(host.Window(), &area);
    POINT place{(area.left + area.right) / 2, (area.top + area.bottom) / 2};
    ScreenToClient(host.frame.Handle(), &place);
    return ChildWindowFromPointEx(host.frame.Handle(), place, CWP_SKIPINVISIBLE | CWP_SKIPDISABLED);
  }

  ControlHost host;
  bool designed = true;
};

TEST_F(InDesignMode, EveryMemberIsRefusedButShow) {
  IDispatch* control = host.control.get();
  const auto early = host.As<_PriceDown>();
  for (const wchar_t* name : {L"RefreshToolbar", L"PreviewPara", L"PrintPara", L"ModelCurrent",
                              L"addRecord", L"editRecord", L"delRecord"}) {
    EXPECT_EQ(Statement(control, name).substr(0, 18), "exception 8000FFFF");
  }
  const Bstr activate(u"Activate");
  EXPECT_EQ(
      Statement(control, L"NotifyMessage", {Text(activate.get()), Nothing(VT_EMPTY)}).substr(0, 18),
      "exception 8000FFFF");
  EXPECT_EQ(Assignment(control, L"ShowMode", Number(1)).substr(0, 18), "exception 8000FFFF");
  EXPECT_EQ(Statement(control, L"SelBlock", {ObjectOf(nullptr)}).substr(0, 18),
            "exception 8000FFFF");
  EXPECT_EQ(Statement(control, L"ParentWindow_ToolBarClick", {ObjectOf(nullptr), Truth(true)})
                .substr(0, 18),
            "exception 8000FFFF");
  Variant answer;
  for (const auto member :
       {&_PriceDown::PreviewPara, &_PriceDown::PrintPara, &_PriceDown::ModelCurrent,
        &_PriceDown::addRecord, &_PriceDown::editRecord, &_PriceDown::delRecord}) {
    EXPECT_EQ((early.get()->*member)(answer.put()), E_UNEXPECTED);
    EXPECT_NE(ConsumeErrorInfo(), "");
  }
  EXPECT_EQ(early->put_ShowMode(1), E_UNEXPECTED);
  EXPECT_EQ(early->RefreshToolbar(), E_UNEXPECTED);
  IDispatch* none = nullptr;
  VARIANT_BOOL shown = VARIANT_FALSE;
  EXPECT_EQ(early->Show(&none, &shown), S_OK);
  EXPECT_EQ(shown, VARIANT_TRUE);
}

TEST_F(InDesignMode, TheMouseIsTheDesigners) { EXPECT_EQ(Hit(), host.frame.Handle()); }

TEST_F(InDesignMode, TheKeyboardIsTheDesigners) {
  SetFocus(host.frame.Handle());
  for (const int id : {ids::kTree, ids::kToolStrip}) {
    SetFocus(Child(id));
    EXPECT_EQ(GetFocus(), host.frame.Handle());
  }
  for (const int key : {VK_F5, VK_INSERT, VK_DELETE, VK_RETURN, VK_DOWN, VK_TAB}) {
    MSG message{};
    message.hwnd = Child(ids::kTree);
    message.message = WM_KEYDOWN;
    message.wParam = static_cast<WPARAM>(key);
    EXPECT_EQ(host.As<IOleInPlaceActiveObject>()->TranslateAccelerator(&message), S_FALSE) << key;
  }
}

TEST_F(InDesignMode, DrawingSizingAndSavingMakeNoCallToTheSuite) {
  const HDC context = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
  const RECTL bounds{0, 0, 300, 200};
  EXPECT_EQ(host.As<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, context,
                                          &bounds, nullptr, nullptr, 0),
            S_OK);
  DeleteEnhMetaFile(CloseEnhMetaFile(context));
  SIZEL size{9000, 6000};
  EXPECT_EQ(host.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size), S_OK);
  const RECT position{0, 0, 500, 400};
  EXPECT_EQ(host.As<IOleInPlaceObject>()->SetObjectRects(&position, &position), S_OK);
  ComPtr<IStream> stream;
  CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
  EXPECT_EQ(host.As<IPersistStreamInit>()->InitNew(), S_OK);
  EXPECT_EQ(host.As<IPersistStreamInit>()->Save(stream.get(), TRUE), S_OK);
  for (const int message : {WM_SYSCOLORCHANGE, WM_SETTINGCHANGE}) {
    SendMessageW(host.Window(), static_cast<UINT>(message), 0, 0);
  }
  for (const DISPID property : kOtherProperties) {
    EXPECT_EQ(host.As<IOleControl>()->OnAmbientPropertyChange(property), S_OK);
  }
}

TEST_F(InDesignMode, RunModeMakesItLiveAndDesignModeInertAgain) {
  designed = false;
  const auto control = host.As<IOleControl>();
  host.site->userMode = true;
  EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  EXPECT_EQ(host.world.log.Count(kCreationLine), 1U);
  EXPECT_EQ(Statement(host.control.get(), L"ModelCurrent"), "S_OK");
  EXPECT_EQ(Hit(), host.Window());
  SetFocus(Child(ids::kTree));
  EXPECT_EQ(GetFocus(), Child(ids::kTree));
  host.site->userMode = false;
  EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_AMBIENT_USERMODE), S_OK);
  EXPECT_EQ(Hit(), host.frame.Handle());
  EXPECT_EQ(Statement(host.control.get(), L"ModelCurrent").substr(0, 18), "exception 8000FFFF");
}

}  // namespace
}  // namespace pricedown::testing
