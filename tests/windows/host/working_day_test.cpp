// A user without a plan in the real windows on a real company: random clicks, keys and texts, while
// the suite loses its company now and then. PRICEDOWN_DAY_SECONDS in the environment makes the day
// longer.
#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "platform/skip.h"
#include "platform/text.h"
#include "tests/sample/temporary_folder.h"
#include "tests/support/number_from_environment.h"
#include "tests/support/utf8.h"
#include "tests/windows/conformance/process_resources.h"
#include "windows/com/com_object_factory.h"
#include "windows/com/wide_text.h"
#include "workbench/company/sqlite_connection.h"
#include "workbench/host/frame_window.h"
#include "workbench/sample/company_check.h"
#include "workbench/sample/company_file.h"

namespace workbench {
namespace {

using pricedown::testing::Utf8;
using pricedown::windows::FromWide;

std::wstring ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

// Its input is posted by a timer, which menus and modal windows serve too.
class RandomUser {
 public:
  RandomUser(FrameWindow& frame, std::u16string company)
      : frame_(frame), company_(std::move(company)), timer_(SetTimer(nullptr, 0, 10, &OnTimer)) {
    current_ = this;
  }
  ~RandomUser() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
  }
  RandomUser(const RandomUser&) = delete;
  RandomUser& operator=(const RandomUser&) = delete;

  // Longer on a machine that is too busy for a tenth of the acts of a free one. Ends with no other
  // window open than the frame and its children, and with the company open.
  void Work(int seconds) {
    constexpr ULONGLONG kLongest = 20;
    const auto duration = static_cast<ULONGLONG>(seconds) * 1'000;
    end_ = GetTickCount64() + duration;
    latest_ = GetTickCount64() + kLongest * duration;
    least_ = acts_ + 2 * seconds + 1;
    frame_.Run();
  }

  int Acts() const { return acts_; }
  int Losses() const { return losses_; }
  // How often the user acted in a window of that class.
  const std::map<std::wstring, int>& Windows() const { return windows_; }

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
    if (current_ == nullptr) return;
    if (!pricedown::SkipFailing([] { current_->Act(); })) ADD_FAILURE() << "the user fails";
  }

  int Roll(int sides) { return static_cast<int>(random_() % static_cast<unsigned>(sides)); }
  template <typename Choices>
  auto OneOf(const Choices& choices) {
    return choices[static_cast<std::size_t>(Roll(static_cast<int>(std::size(choices))))];
  }

  void Act() {
    BYTE keys[256] = {};
    SetKeyboardState(keys);
    const HWND menu = FindWindowW(L"#32768", nullptr);
    if (menu != nullptr && IsWindowVisible(menu) != FALSE) {
      static constexpr std::array<WPARAM, 4> kMenuKeys{VK_DOWN, VK_DOWN, VK_RETURN, VK_ESCAPE};
      PostMessageW(GetActiveWindow(), WM_KEYDOWN, OneOf(kMenuKeys), 1);
      ++windows_[L"menu"];
      return;
    }
    const HWND front = Front();
    if (front == nullptr) return;
    const ULONGLONG now = GetTickCount64();
    if (now > end_ && (acts_ >= least_ || now > latest_)) {
      if (front != frame_.Handle()) {
        Dismiss(front);
      } else if (lost_) {
        ChangeCompany();
      } else {
        PostQuitMessage(0);
      }
      return;
    }
    if (Roll(lost_ ? 30 : 300) == 0) ChangeCompany();
    if (front == frame_.Handle() && frame_.ActiveChild() == nullptr) {
      frame_.OpenChild(kItemClassesCaption);
      return;
    }
    ++acts_;
    ++windows_[ClassOf(front)];
    const HWND target = Target(front);
    if (target != nullptr) Use(front, target);
  }

  // The window that a user would see in front and can use; null while there is none.
  static HWND Front() {
    HWND front = GetActiveWindow();
    if (front != nullptr && IsUsable(front)) return front;
    front = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &FindUsable, reinterpret_cast<LPARAM>(&front));
    return front;
  }
  static BOOL CALLBACK FindUsable(HWND window, LPARAM found) noexcept {
    if (!IsUsable(window) || ClassOf(window).starts_with(L"tooltips")) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
  }
  static BOOL CALLBACK CollectUsable(HWND window, LPARAM found) noexcept {
    if (IsUsable(window)) reinterpret_cast<std::vector<HWND>*>(found)->push_back(window);
    return TRUE;
  }
  static bool IsUsable(HWND window) {
    return IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE;
  }

  // Of the frame only the control: its menus would end the day.
  HWND Target(HWND front) {
    const HWND root = front == frame_.Handle() ? frame_.ActiveChild()->ControlHandle() : front;
    std::vector<HWND> windows{root};
    EnumChildWindows(root, &CollectUsable, reinterpret_cast<LPARAM>(&windows));
    return OneOf(windows);
  }

  void Use(HWND front, HWND target) {
    const int choice = Roll(100);
    if (choice < 45) {
      Click(target);
    } else if (choice < 75) {
      static constexpr std::array<WPARAM, 20> kKeys{
          VK_DOWN,  VK_UP,   VK_LEFT,   VK_RIGHT, VK_TAB,  VK_RETURN, VK_ESCAPE,
          VK_F2,    VK_F3,   VK_F5,     VK_F6,    VK_HOME, VK_END,    VK_INSERT,
          VK_PRIOR, VK_NEXT, VK_DELETE, VK_SPACE, VK_APPS, VK_BACK};
      PostMessageW(Focus(target), WM_KEYDOWN, OneOf(kKeys), 1);
    } else if (choice < 80) {
      BYTE keys[256] = {};
      keys[VK_CONTROL] = 0x80;
      SetKeyboardState(keys);
      static constexpr std::array<WPARAM, 6> kKeys{'A', 'C', 'F', 'P', 'S', VK_HOME};
      PostMessageW(Focus(target), WM_KEYDOWN, OneOf(kKeys), 1);
    } else if (choice < 97 || front == frame_.Handle()) {
      static constexpr std::array<const wchar_t*, 9> kTexts{
          L"05", L"12.5", L"1281", L"6701", L"it's", L"原材料", L"-1", L" ", L"01.01"};
      for (const wchar_t* text = OneOf(kTexts); *text != L'\0'; ++text) {
        PostMessageW(Focus(target), WM_CHAR, *text, 1);
      }
    } else {
      Dismiss(front);
    }
  }

  static HWND Focus(HWND otherwise) {
    const HWND focus = GetFocus();
    return focus != nullptr ? focus : otherwise;
  }

  void Click(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    if (area.right <= 0 || area.bottom <= 0) return;
    const LPARAM place = MAKELPARAM(Roll(area.right), Roll(area.bottom));
    const int kind = Roll(10);
    const bool right = kind == 0;
    PostMessageW(window, WM_MOUSEMOVE, 0, place);
    PostMessageW(window, right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN, right ? MK_RBUTTON : MK_LBUTTON,
                 place);
    PostMessageW(window, right ? WM_RBUTTONUP : WM_LBUTTONUP, 0, place);
    if (kind != 1) return;
    PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, place);
    PostMessageW(window, WM_LBUTTONUP, 0, place);
  }

  void Dismiss(HWND window) {
    if (ClassOf(window) != L"#32770") {
      PostMessageW(window, WM_CLOSE, 0, 0);
      return;
    }
    for (const int button : {IDCANCEL, IDNO, IDOK}) {
      if (GetDlgItem(window, button) == nullptr) continue;
      PostMessageW(window, WM_COMMAND, static_cast<WPARAM>(button), 0);
      return;
    }
  }

  // Without a company every call of the suite that needs one fails.
  void ChangeCompany() {
    if (lost_) {
      frame_.Settings()->Call(u"Open", {company_});
    } else {
      frame_.Settings()->Call(u"Close");
      ++losses_;
    }
    lost_ = !lost_;
  }

  static inline RandomUser* current_ = nullptr;
  FrameWindow& frame_;
  std::u16string company_;
  std::mt19937 random_{20080331};
  UINT_PTR timer_;
  ULONGLONG end_ = 0;
  ULONGLONG latest_ = 0;
  int least_ = 0;
  int acts_ = 0;
  int losses_ = 0;
  bool lost_ = false;
  std::map<std::wstring, int> windows_;
};

class WorkingDay : public ::testing::Test {
 protected:
  WorkingDay() {
    OleInitialize(nullptr);
    CreateCompanyFile(path_, {});
  }
  ~WorkingDay() override { OleUninitialize(); }

  std::vector<std::string> Findings() const {
    SqliteConnection company(path_);
    std::vector<std::string> findings = CheckCompany(company);
    std::sort(findings.begin(), findings.end());
    return findings;
  }

  testing::TemporaryFolder folder_;
  std::string path_ = folder_.PathOf("company.db");
};

TEST_F(WorkingDay, LeavesASoundCompanyAndAFreeProcess) {
  const std::vector<std::string> before = Findings();
  const int seconds = pricedown::testing::NumberFromEnvironment("PRICEDOWN_DAY_SECONDS", 5);
  {
    pricedown::windows::ComObjectFactory factory;
    FrameWindow frame(GetModuleHandleW(nullptr), factory.Create(u"ZEPWorkbench.Settings"));
    const std::u16string company = pricedown::FromUtf8(path_);
    frame.OpenCompany(pricedown::windows::ToWide(company));
    frame.Show(SW_SHOW);
    RandomUser user(frame, company);
    // What the system and the suite make once.
    user.Work(seconds / 4);
    frame.CloseChildren();
    const pricedown::testing::ProcessResources noon = pricedown::testing::ResourcesNow();
    user.Work(seconds - seconds / 4);
    EXPECT_NE(frame.OpenChild(kItemClassesCaption), nullptr);
    frame.CloseChildren();
    const pricedown::testing::ProcessResources evening = pricedown::testing::ResourcesNow();
    std::cout << "    " << user.Acts() << " acts, the company lost " << user.Losses() << " times\n";
    for (const auto& [name, acts] : user.Windows()) {
      std::cout << "    " << acts << " in " << Utf8(FromWide(name)) << "\n";
    }
    std::cout << "    from noon to evening: handles " << evening.handles - noon.handles << ", GDI "
              << evening.gdiObjects - noon.gdiObjects << ", windows and menus "
              << evening.userObjects - noon.userObjects << ", bytes "
              << evening.memory - noon.memory << "\n";
    EXPECT_GT(user.Acts(), 2 * seconds);
    EXPECT_LE(evening.userObjects, noon.userObjects);
    // What the system makes when it is first used.
    EXPECT_LE(evening.handles, noon.handles + 20);
    EXPECT_LE(evening.gdiObjects, noon.gdiObjects + 20);
    frame.Settings()->Call(u"Close");
  }
  const std::vector<std::string> after = Findings();
  for (const std::string& finding : after) {
    EXPECT_TRUE(std::binary_search(before.begin(), before.end(), finding)) << finding;
  }
}

}  // namespace
}  // namespace workbench
