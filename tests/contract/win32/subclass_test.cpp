#include "platform/win32/subclass.h"

#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/win32/handles.h"

namespace deck {
namespace {

HWND MakeEdit(HWND parent) {
  return CreateWindowExW(0, L"EDIT", L"as made", parent != nullptr ? WS_CHILD : WS_POPUP, 0, 0, 50,
                         20, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
}

std::wstring TextOf(HWND window) {
  std::wstring text(100, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), 100)));
  return text;
}

// Stands in front of a control, writes down which messages it saw and does as it is told.
struct Front {
  LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    messages.push_back(message);
    if (message == WM_SETTEXT) {
      textBefore = TextOf(window);
      if (swallows) return 77;
      if (throws) throw std::bad_alloc();
      if (endsTheWindow) DestroyWindow(window);
    }
    const LRESULT result = CallSubclassed(window, message, wParam, lParam);
    if (message == WM_SETTEXT) textAfter = TextOf(window);
    return result;
  }

  std::vector<UINT> messages;
  std::wstring textBefore;
  std::wstring textAfter;
  bool swallows = false;
  bool throws = false;
  bool endsTheWindow = false;
};

class SubclassTest : public testing::Test {
 protected:
  void PutInFront() { Subclass<&Front::OnMessage>(edit_.Get(), &front_); }
  LRESULT SetText(const wchar_t* text) {
    return SendMessageW(edit_.Get(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
  }

  // Stands first, so that the window ends while it is still there.
  Front front_;
  WindowHandle edit_{MakeEdit(nullptr)};
};

TEST_F(SubclassTest, OwnerSeesAMessageBeforeTheControlDoes) {
  PutInFront();
  EXPECT_EQ(SetText(L"new"), TRUE);
  EXPECT_EQ(front_.textBefore, L"as made");
  EXPECT_EQ(front_.textAfter, L"new");
}

TEST_F(SubclassTest, ControlNeverSeesWhatTheOwnerKeepsToItself) {
  PutInFront();
  front_.swallows = true;
  EXPECT_EQ(SetText(L"new"), 77);
  EXPECT_EQ(TextOf(edit_.Get()), L"as made");
}

TEST_F(SubclassTest, ControlStaysAWideOne) {
  PutInFront();
  EXPECT_TRUE(IsWindowUnicode(edit_.Get()));
  SetText(L"\u0416\u4E2D");
  EXPECT_EQ(TextOf(edit_.Get()), L"\u0416\u4E2D");
}

TEST_F(SubclassTest, FailureOfTheOwnerIsAnsweredWithNothing) {
  PutInFront();
  front_.throws = true;
  EXPECT_EQ(SetText(L"new"), 0);
  front_.throws = false;
  EXPECT_EQ(SetText(L"newer"), TRUE);
}

TEST_F(SubclassTest, FirstOwnerStaysWhenAnotherComes) {
  PutInFront();
  Front second;
  Subclass<&Front::OnMessage>(edit_.Get(), &second);
  EXPECT_EQ(SetText(L"new"), TRUE);
  EXPECT_TRUE(second.messages.empty());
  EXPECT_EQ(front_.textAfter, L"new");
}

TEST_F(SubclassTest, NoWindowIsNoError) {
  Subclass<&Front::OnMessage>(HWND{nullptr}, &front_);
  EXPECT_TRUE(front_.messages.empty());
}

TEST_F(SubclassTest, OwnerSeesEveryMessageUntilTheWindowHasEnded) {
  PutInFront();
  edit_.Reset();
  ASSERT_FALSE(front_.messages.empty());
  EXPECT_EQ(front_.messages.back(), static_cast<UINT>(WM_NCDESTROY));
}

TEST_F(SubclassTest, WindowMayEndDuringAMessage) {
  PutInFront();
  front_.endsTheWindow = true;
  SetText(L"new");
  EXPECT_FALSE(IsWindow(edit_.Get()));
  const std::size_t seen = front_.messages.size();
  EXPECT_EQ(front_.messages.back(), static_cast<UINT>(WM_NCDESTROY));
  EXPECT_EQ(SetText(L"newer"), 0);
  EXPECT_EQ(front_.messages.size(), seen);
}

TEST_F(SubclassTest, EachWindowHasItsOwnOwner) {
  PutInFront();
  Front other;
  const WindowHandle otherEdit{MakeEdit(nullptr)};
  Subclass<&Front::OnMessage>(otherEdit.Get(), &other);
  SetText(L"new");
  EXPECT_EQ(front_.textAfter, L"new");
  EXPECT_EQ(other.textAfter, L"");
  EXPECT_EQ(TextOf(otherEdit.Get()), L"as made");
}

TEST_F(SubclassTest, WindowsThatCameAndWentLeaveNothingToLaterOnes) {
  // The system gives handles out again, and the second window must not meet the first one's owner.
  for (int round = 0; round < 50; ++round) {
    Front passing;
    const WindowHandle edit{MakeEdit(nullptr)};
    Subclass<&Front::OnMessage>(edit.Get(), &passing);
    SendMessageW(edit.Get(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"new"));
    EXPECT_EQ(passing.textAfter, L"new");
  }
}

TEST_F(SubclassTest, ChildEndsBeforeItsParentHasEnded) {
  PutInFront();
  Front child;
  const HWND inside = MakeEdit(edit_.Get());
  Subclass<&Front::OnMessage>(inside, &child);
  edit_.Reset();
  EXPECT_EQ(child.messages.back(), static_cast<UINT>(WM_NCDESTROY));
  EXPECT_FALSE(IsWindow(inside));
}

}  // namespace
}  // namespace deck
