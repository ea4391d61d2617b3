// Keys as fast as a controller's macros send them. The figures go to the test's results, where
// docs/key_tester.md has them from.
#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "platform/strings.h"
#include "tests/window/key_test/key_test_fixture.h"

namespace deck {
namespace {

double Milliseconds() {
  LARGE_INTEGER now{};
  LARGE_INTEGER frequency{};
  QueryPerformanceCounter(&now);
  QueryPerformanceFrequency(&frequency);
  return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// Asks the window again and again, as another program would, while it lives.
class Heartbeat {
 public:
  explicit Heartbeat(HWND window) : thread_([this, window] { Beat(window); }) {}
  ~Heartbeat() { Stop(); }
  Heartbeat(const Heartbeat&) = delete;
  Heartbeat& operator=(const Heartbeat&) = delete;

  // The times that the answers took, in milliseconds, in ascending order.
  const std::vector<double>& Stop() {
    stopped_ = true;
    if (thread_.joinable()) thread_.join();
    std::sort(answers_.begin(), answers_.end());
    return answers_;
  }

 private:
  void Beat(HWND window) {
    while (!stopped_) {
      const double asked = Milliseconds();
      SendMessageW(window, WM_NULL, 0, 0);
      answers_.push_back(Milliseconds() - asked);
      Sleep(2);
    }
  }

  std::atomic<bool> stopped_ = false;
  std::vector<double> answers_;
  std::thread thread_;
};

// The keys of a burst: letters in a pattern that shows a change of order.
WORD KeyOf(int press) {
  return static_cast<WORD>('A' + press * 7 % 26);
}

// "Down: x" and "Up: x" with their line breaks.
constexpr int kCharactersOfAPress = 16;

class KeyTestBurstTest : public KeyTestWindowFixture {
 protected:
  // So many key-downs and key-ups within a second, through the system's input queue.
  void Burst(int burstEvents) {
    const int before = LogLength();
    std::thread hands([burstEvents] {
      const double start = Milliseconds();
      for (int event = 0; event < burstEvents; ++event) {
        while (Milliseconds() < start + event * 1000.0 / burstEvents) std::this_thread::yield();
        SendKey(KeyOf(event / 2), event % 2 == 1);
      }
    });
    WaitForLog(before + burstEvents / 2 * kCharactersOfAPress);
    hands.join();
  }

  // What a key costs, in milliseconds, drawing included.
  double CostOfAPress() {
    constexpr int kPresses = 1000;
    const int before = LogLength();
    for (int press = 0; press < kPresses; ++press) {
      PostMessageW(Names(), WM_KEYDOWN, KeyOf(press), 1);
      PostMessageW(Names(), WM_KEYUP, KeyOf(press), static_cast<LPARAM>(0xC0000001));
    }
    const double start = Milliseconds();
    WaitForLog(before + kPresses * kCharactersOfAPress);
    UpdateWindow(Events());
    UpdateWindow(Names());
    return (Milliseconds() - start) / kPresses;
  }

  int LogLength() const { return GetWindowTextLengthW(Events()); }
  void WaitForLog(int length) {
    const ULONGLONG start = GetTickCount64();
    while (LogLength() < length && GetTickCount64() - start < 20'000) loop.Pump();
  }

  static std::u16string ExpectedEvents(int burstEvents) {
    std::u16string lines;
    for (int event = 0; event < burstEvents; ++event) {
      lines += event % 2 == 0 ? u"Down: " : u"Up: ";
      lines += ToLower(static_cast<char16_t>(KeyOf(event / 2)));
      lines += u"\r\n";
    }
    return lines;
  }
  static std::u16string ExpectedNames(int burstEvents) {
    std::u16string lines;
    for (int press = 0; press < burstEvents / 2; ++press) {
      lines += u" ";
      lines += ToLower(static_cast<char16_t>(KeyOf(press)));
      lines += u"\r\n";
    }
    return lines;
  }

  static void Tell(const char* what, double milliseconds) {
    RecordProperty(what, std::to_string(milliseconds));
    std::printf("%s: %.3f ms\n", what, milliseconds);
  }
};

TEST_F(KeyTestBurstTest, AThousandEventsInASecondAreAllLoggedInOrder) {
  Open();
  Heartbeat heartbeat(form.Handle());
  Burst(1000);
  const std::vector<double>& answers = heartbeat.Stop();
  Settle();
  EXPECT_EQ(EventLines(), ExpectedEvents(1000));
  EXPECT_EQ(NameLines(), ExpectedNames(1000));
  Tell("answer, median", answers[answers.size() / 2]);
  Tell("answer, 95 of 100", answers[answers.size() * 95 / 100]);
  Tell("answer, slowest", answers.back());
  EXPECT_LT(answers[answers.size() * 95 / 100], 50);
}

TEST_F(KeyTestBurstTest, AHundredThousandLinesAreAsFastAsNone) {
  Open();
  CostOfAPress();  // warm
  form.Clear(KeyBox::kEvents);
  form.Clear(KeyBox::kNames);
  const double empty = CostOfAPress();
  for (int line = 0; line < 100'000; ++line) {
    form.Append(KeyBox::kEvents, u"Down: SHF");
    form.Append(KeyBox::kNames, u"Shift Ctrl Alt F12");
  }
  Settle();
  const double full = CostOfAPress();
  Tell("a press in an empty log", empty);
  Tell("a press in a log of 100,000 lines", full);
  EXPECT_LT(full, 2 * empty + 0.5);

  Heartbeat heartbeat(form.Handle());
  Burst(1000);
  const std::vector<double>& answers = heartbeat.Stop();
  Tell("answer in a log of 100,000 lines, median", answers[answers.size() / 2]);
  Tell("answer in a log of 100,000 lines, slowest", answers.back());
  EXPECT_LT(answers[answers.size() * 95 / 100], 50);

  const double start = Milliseconds();
  form.Clear(KeyBox::kEvents);
  UpdateWindow(Events());
  Tell("clearing 100,000 lines", Milliseconds() - start);
}

}  // namespace
}  // namespace deck
