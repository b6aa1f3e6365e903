// Whole lives of the control as the well-known families of containers drive it: their order of
// calls, with a container that supports every call and with one that refuses one.
#include <gtest/gtest.h>
#include <olectl.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/error.h"
#include "tests/windows/raw_call.h"
#include "tests/windows/server/control_host.h"
#include "tests/windows/server/memory_picture.h"
#include "windows/com/com_class.h"

namespace pricedown::testing {
namespace {

using windows::ComPtr;

ComPtr<IStorage> NewStorage() {
  ComPtr<ILockBytes> bytes;
  CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.put());
  ComPtr<IStorage> storage;
  StgCreateDocfileOnILockBytes(bytes.get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                               storage.put());
  return storage;
}

// What a family does between the control's making and its use, and what it does at the end. The
// results of calls that a real container ignores are ignored here, too.
struct Persona {
  const char* name;
  // What it answers to the only ambient property that the control asks; none: no such property.
  std::optional<bool> userMode;
  void (*begin)(ControlHost& host);
  void (*end)(ControlHost& host);
};

// The container's settings that it announces while the control is open: font, colours, language,
// ...
void AnnounceAmbient(ControlHost& host) {
  for (const DISPID property :
       {DISPID_AMBIENT_FONT, DISPID_AMBIENT_BACKCOLOR, DISPID_AMBIENT_FORECOLOR,
        DISPID_AMBIENT_LOCALEID, DISPID_AMBIENT_USERMODE, DISPID_AMBIENT_UIDEAD,
        DISPID_AMBIENT_SHOWHATCHING, DISPID_AMBIENT_DISPLAYNAME, DISPID_UNKNOWN}) {
    EXPECT_EQ(host.As<IOleControl>()->OnAmbientPropertyChange(property), S_OK) << property;
  }
}

// A container that shows a dialog of its own over the control.
void ShowDialog(ControlHost& host) {
  const auto active = host.As<IOleInPlaceActiveObject>();
  EXPECT_EQ(active->OnFrameWindowActivate(FALSE), S_OK);
  EXPECT_EQ(active->EnableModeless(FALSE), S_OK);
  EXPECT_EQ(active->EnableModeless(TRUE), S_OK);
  EXPECT_EQ(active->OnFrameWindowActivate(TRUE), S_OK);
}

void Size(ControlHost& host, LONG width, LONG height) {
  SIZEL himetric{width * 26, height * 26};
  host.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &himetric);
  if (const auto place = host.As<IOleInPlaceObject>()) {
    const RECT pixels{0, 0, width, height};
    place->SetObjectRects(&pixels, &pixels);
  }
}

// A managed toolkit: status first, persistence by the first interface found, a property sink
// that the control does not have.
void BeginManaged(ControlHost& host) {
  DWORD status = 0;
  const auto object = host.As<IOleObject>();
  EXPECT_EQ(object->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
  EXPECT_NE(status & OLEMISC_SETCLIENTSITEFIRST, 0U);
  host.SetSite();
  EXPECT_EQ(host.As<IPersistStreamInit>()->InitNew(), S_OK);
  Size(host, 600, 400);
  CONTROLINFO info{};
  info.cb = sizeof info;
  EXPECT_EQ(host.As<IOleControl>()->GetControlInfo(&info), S_OK);
  ComPtr<IConnectionPoint> properties;
  EXPECT_EQ(host.As<IConnectionPointContainer>()->FindConnectionPoint(IID_IPropertyNotifySink,
                                                                      properties.put()),
            CONNECT_E_NOCONNECTION);
  host.DoVerb(OLEIVERB_INPLACEACTIVATE);
  Size(host, 620, 420);
  host.DoVerb(OLEIVERB_UIACTIVATE);
}
void EndManaged(ControlHost& host) {
  host.As<IOleInPlaceObject>()->UIDeactivate();
  host.As<IOleInPlaceObject>()->InPlaceDeactivate();
  host.Close();
  host.LeaveSite();
}

// A C++ class library: sinks of all kinds, ambient changes, frozen events while it loads.
void BeginFramework(ControlHost& host) {
  const auto object = host.As<IOleObject>();
  const auto control = host.As<IOleControl>();
  control->FreezeEvents(TRUE);
  host.SetSite();
  EXPECT_EQ(host.As<IPersistStreamInit>()->InitNew(), S_OK);
  EXPECT_EQ(object->SetHostNames(L"host", nullptr), S_OK);
  Size(host, 500, 300);
  EXPECT_EQ(host.As<IViewObject2>()->SetAdvise(DVASPECT_CONTENT, 0, nullptr), S_OK);
  EXPECT_EQ(control->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
  control->FreezeEvents(FALSE);
  host.DoVerb(OLEIVERB_INPLACEACTIVATE);
  host.DoVerb(OLEIVERB_SHOW);
  const auto active = host.As<IOleInPlaceActiveObject>();
  EXPECT_EQ(active->OnDocWindowActivate(TRUE), S_OK);
  const RECT border{0, 0, 500, 300};
  EXPECT_EQ(active->ResizeBorder(&border, host.site.get(), TRUE), S_OK);
  ShowDialog(host);
}
void EndFramework(ControlHost& host) {
  host.As<IOleInPlaceObject>()->UIDeactivate();
  host.DoVerb(OLEIVERB_HIDE);
  host.As<IOleObject>()->Close(OLECLOSE_NOSAVE);
  host.LeaveSite();
}

// A form of a Basic: everything in one call, then the properties.
void BeginBasicForm(ControlHost& host) {
  QACONTAINER container{};
  container.cbSize = sizeof container;
  container.pClientSite = host.site.get();
  container.dwAmbientFlags = QACONTAINER_USERMODE | QACONTAINER_MESSAGEREFLECT;
  QACONTROL control{};
  control.cbSize = sizeof control;
  EXPECT_EQ(host.As<IQuickActivate>()->QuickActivate(&container, &control), S_OK);
  EXPECT_NE(control.dwMiscStatus & OLEMISC_ACTIVATEWHENVISIBLE, 0U);
  EXPECT_NE(control.dwViewStatus & VIEWSTATUS_OPAQUE, 0U);
  EXPECT_EQ(host.As<IPersistStreamInit>()->InitNew(), S_OK);
  SIZEL size{9000, 6000};
  EXPECT_EQ(host.As<IQuickActivate>()->SetContentExtent(&size), S_OK);
  SIZEL found{};
  EXPECT_EQ(host.As<IQuickActivate>()->GetContentExtent(&found), S_OK);
  EXPECT_EQ(found.cx, 9000);
  host.DoVerb(OLEIVERB_SHOW);
  ShowDialog(host);
}
void EndBasicForm(ControlHost& host) {
  host.As<IOleInPlaceObject>()->InPlaceDeactivate();
  host.LeaveSite();
  host.Close();
}

// A document's cache: it would rather be told of changes, freezes the view and keeps a metafile.
void CachePicture(ControlHost& host) {
  const auto data = host.As<IDataObject>();
  FORMATETC format{CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
  DWORD key = 0;
  EXPECT_EQ(data->DAdvise(&format, ADVF_PRIMEFIRST, nullptr, &key), OLE_E_ADVISENOTSUPPORTED);
  const auto view = host.As<IViewObject>();
  LOGPALETTE* palette = nullptr;
  EXPECT_EQ(view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &palette), S_FALSE);
  EXPECT_EQ(view->Freeze(DVASPECT_CONTENT, -1, nullptr, &key), E_NOTIMPL);
  EXPECT_EQ(data->QueryGetData(&format), S_OK);
  STGMEDIUM medium{};
  EXPECT_EQ(data->GetData(&format, &medium), S_OK);
  EXPECT_NE(medium.hMetaFilePict, nullptr);
  ReleaseStgMedium(&medium);
  const auto object = host.As<IOleObject>();
  EXPECT_EQ(object->SetMoniker(OLEWHICHMK_CONTAINER, nullptr), E_NOTIMPL);
  ComPtr<IDataObject> copied;
  EXPECT_EQ(object->GetClipboardData(0, copied.put()), E_NOTIMPL);
  EXPECT_EQ(object->Update(), S_OK);
}

// A document: loaded from its storage before it has a site, drawn before it is active, saved and
// kept when it is not active any more.
void BeginDocument(ControlHost& host) {
  const auto storage = NewStorage();
  EXPECT_EQ(host.As<IPersistStorage>()->InitNew(storage.get()), S_OK);
  EXPECT_EQ(host.As<IPersistStorage>()->Save(storage.get(), TRUE), S_OK);
  EXPECT_EQ(host.As<IPersistStorage>()->SaveCompleted(nullptr), S_OK);
  EXPECT_EQ(host.As<IPersistStorage>()->Load(storage.get()), S_OK);
  host.SetSite();
  SIZEL size{};
  EXPECT_EQ(host.As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size), S_OK);
  const MemoryPicture picture;
  const RECTL bounds{0, 0, MemoryPicture::kWidth, MemoryPicture::kHeight};
  EXPECT_EQ(host.As<IViewObject>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr,
                                         picture.Context(), &bounds, nullptr, nullptr, 0),
            S_OK);
  CachePicture(host);
  host.DoVerb(OLEIVERB_PRIMARY);
}
void EndDocument(ControlHost& host) {
  const auto storage = NewStorage();
  host.As<IOleInPlaceObject>()->InPlaceDeactivate();
  EXPECT_EQ(host.As<IPersistStorage>()->Save(storage.get(), FALSE), S_OK);
  EXPECT_EQ(host.As<IPersistStorage>()->HandsOffStorage(), S_OK);
  host.As<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY);
  host.LeaveSite();
}

// A Pascal toolkit: the site, the verb with the parent's window, and no Close at the end.
void BeginPascal(ControlHost& host) {
  host.SetSite();
  EXPECT_EQ(host.As<IPersistStreamInit>()->InitNew(), S_OK);
  EXPECT_EQ(host.As<IOleObject>()->SetHostNames(L"host", L""), S_OK);
  EXPECT_EQ(host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_AMBIENT_FONT), S_OK);
  host.DoVerb(OLEIVERB_SHOW);
  Size(host, 400, 300);
  EXPECT_EQ(host.As<IOleInPlaceObject>()->ReactivateAndUndo(), INPLACE_E_NOTUNDOABLE);
  MSG mnemonic{};
  mnemonic.message = WM_SYSCHAR;
  EXPECT_EQ(host.As<IOleControl>()->OnMnemonic(&mnemonic), S_OK);
}
void EndPascal(ControlHost& host) { host.LeaveSite(); }

// A portable toolkit: it moves the control's window by itself, hides it first, and closes an object
// that it has hidden.
void BeginPortable(ControlHost& host) {
  host.SetSite();
  host.As<IOleObject>()->SetHostNames(L"host", nullptr);
  EXPECT_EQ(host.As<IPersistStreamInit>()->InitNew(), S_OK);
  host.DoVerb(OLEIVERB_INPLACEACTIVATE);
  host.DoVerb(OLEIVERB_HIDE);
  HWND window = nullptr;
  if (SUCCEEDED(host.As<IOleInPlaceObject>()->GetWindow(&window))) {
    SetWindowPos(window, nullptr, 0, 0, 300, 200, SWP_NOZORDER);
  }
  Size(host, 300, 200);
  host.DoVerb(OLEIVERB_SHOW);
}
void EndPortable(ControlHost& host) {
  host.DoVerb(OLEIVERB_HIDE);
  host.Close();
  host.LeaveSite();
}

constexpr Persona kPersonas[] = {{"Managed", std::nullopt, BeginManaged, EndManaged},
                                 {"Framework", true, BeginFramework, EndFramework},
                                 {"BasicForm", true, BeginBasicForm, EndBasicForm},
                                 {"Document", std::nullopt, BeginDocument, EndDocument},
                                 {"Pascal", true, BeginPascal, EndPascal},
                                 {"Portable", true, BeginPortable, EndPortable}};

// Calls that containers of these families leave unfinished.
constexpr const char* kRefusedCalls[] = {"",          "ShowObject",      "OnUIActivate",
                                         "OnFocus",   "SetActiveObject", "OnInPlaceActivate",
                                         "GetWindow", "OnUIDeactivate",  "OnInPlaceDeactivate"};

void PrintTo(const Persona& persona, std::ostream* stream) { *stream << persona.name; }

class Containers : public ::testing::TestWithParam<Persona> {};

TEST_P(Containers, LoadUseAndEndTheControl) {
  for (const char* refused : kRefusedCalls) {
    SCOPED_TRACE(refused);
    ControlHost host;
    host.site->refusedCall = refused;
    if (GetParam().userMode) host.site->userMode = *GetParam().userMode;
    GetParam().begin(host);
    EXPECT_EQ(Expression(host.control.get(), L"Ready"), "S_OK True");
    EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
    AnnounceAmbient(host);
    EXPECT_EQ(Statement(host.control.get(), L"RefreshToolbar"), "S_OK");
    if (*refused == '\0') {
      EXPECT_NE(IsWindowVisible(host.Window()), FALSE);
    }
    host.world.log.Clear();
    GetParam().end(host);
    // A control without a window around it has no caption, which is the other mode.
    const bool captioned = std::string_view(refused) != "GetWindow";
    EXPECT_EQ(host.world.log.Count(captioned ? R"(put dictionary("NodeSel1") = "gi01")"
                                             : R"(put dictionary("NodeSel2") = "gi01")"),
              1U);
    EXPECT_EQ(host.Window(), nullptr);
    IOleClientSite* site = host.site.get();
    site->AddRef();
    EXPECT_EQ(site->Release(), 1U);
  }
}

INSTANTIATE_TEST_SUITE_P(Families, Containers, ::testing::ValuesIn(kPersonas),
                         [](const auto& one) { return std::string(one.param.name); });

TEST(QuickActivation, ConnectsTheEventSinkAndAsksForWholeStructs) {
  ControlHost host;
  const auto quick = host.As<IQuickActivate>();
  QACONTAINER container{};
  QACONTROL control{};
  EXPECT_EQ(quick->QuickActivate(nullptr, &control), E_POINTER);
  EXPECT_EQ(quick->QuickActivate(&container, &control), E_INVALIDARG);
  container.cbSize = sizeof container;
  control.cbSize = sizeof control;
  container.pClientSite = host.site.get();
  // Any automation object can be a sink.
  container.pUnkEventSink = static_cast<IDispatch*>(host.site.get());
  EXPECT_EQ(quick->QuickActivate(&container, &control), S_OK);
  EXPECT_NE(control.dwEventCookie, 0U);
  ComPtr<IConnectionPoint> events;
  host.As<IConnectionPointContainer>()->FindConnectionPoint(DIID__PriceDownEvents, events.put());
  EXPECT_EQ(events->Unadvise(control.dwEventCookie), S_OK);
}

// What a container passes in one call, without sinks and flags.
struct QuickCall {
  explicit QuickCall(ControlHost& host) {
    container.cbSize = sizeof container;
    container.pClientSite = host.site.get();
    control.cbSize = sizeof control;
  }
  HRESULT SendTo(ControlHost& host) {
    return host.As<IQuickActivate>()->QuickActivate(&container, &control);
  }

  QACONTAINER container{};
  QACONTROL control{};
};

TEST(QuickActivation, UsesTheContainersFlagsWhereTheSiteNamesNoUserMode) {
  {
    ControlHost host;
    QuickCall design(host);
    EXPECT_EQ(design.SendTo(host), S_OK);
    EXPECT_EQ(host.As<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN), S_OK);
    EXPECT_FALSE(host.SuiteWasCalled());
    host.LeaveSite();
  }
  ControlHost host;
  host.site->userMode = true;
  QuickCall run(host);
  EXPECT_EQ(run.SendTo(host), S_OK);
  EXPECT_TRUE(host.SuiteWasCalled());
}

// Such a container connects its sinks again by itself.
TEST(QuickActivation, ConnectsNoSinkWhenTheCreationFails) {
  ControlHost host;
  host.world.factory.Refuses(u"ZEPEBSBase.SystemProfile");
  QuickCall call(host);
  call.container.dwAmbientFlags = QACONTAINER_USERMODE;
  call.container.pUnkEventSink = static_cast<IDispatch*>(host.site.get());
  EXPECT_EQ(call.SendTo(host), static_cast<HRESULT>(ErrorNumber::CannotCreateObject));
  EXPECT_EQ(call.control.dwEventCookie, 0U);
  ComPtr<IConnectionPoint> events;
  host.As<IConnectionPointContainer>()->FindConnectionPoint(DIID__PriceDownEvents, events.put());
  ComPtr<IEnumConnections> connections;
  ASSERT_EQ(events->EnumConnections(connections.put()), S_OK);
  CONNECTDATA data{};
  EXPECT_EQ(connections->Next(1, &data, nullptr), S_FALSE);
  EXPECT_EQ(Expression(host.control.get(), L"Show", {ObjectOf(nullptr)}), "S_OK True");
}

}  // namespace
}  // namespace pricedown::testing
