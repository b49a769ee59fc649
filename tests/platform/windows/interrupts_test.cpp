#include "platform/interrupts.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <thread>

#include "base/yielder.h"
#include "platform/windows/console_events.h"

namespace korv {
namespace {

TEST(Interrupts, TheFirstOneRequestsAStop) {
  for (const DWORD event : {CTRL_C_EVENT, CTRL_BREAK_EVENT}) {
    NoYielder yielder;
    const InterruptGuard guard(yielder);
    EXPECT_FALSE(yielder.Stopped());
    EXPECT_TRUE(OnConsoleEvent(event)) << event;
    EXPECT_TRUE(yielder.Stopped());
  }
}

TEST(Interrupts, ASecondOneIsLeftToTheSystemWhateverHasBecomeOfTheFirst) {
  for (const bool heeded : {false, true}) {
    for (const DWORD event : {CTRL_C_EVENT, CTRL_BREAK_EVENT}) {
      NoYielder yielder;
      const InterruptGuard guard(yielder);
      EXPECT_TRUE(OnConsoleEvent(CTRL_C_EVENT));
      if (heeded) yielder.ClearStop();
      EXPECT_FALSE(OnConsoleEvent(event)) << event;
      EXPECT_EQ(yielder.Stopped(), !heeded);
    }
  }
}

TEST(Interrupts, AreLeftToTheSystemAfterTheGuard) {
  NoYielder yielder;
  { const InterruptGuard guard(yielder); }
  for (const DWORD event :
       {CTRL_C_EVENT, CTRL_BREAK_EVENT, CTRL_CLOSE_EVENT, CTRL_LOGOFF_EVENT, CTRL_SHUTDOWN_EVENT})
    EXPECT_FALSE(OnConsoleEvent(event)) << event;
  EXPECT_FALSE(yielder.Stopped());
}

constexpr int kEndedInOrder = 7;
constexpr int kEndedByHandler = 8;
constexpr int kNoStop = 9;
constexpr int kNoConsole = 10;

bool StopsWithin(const Yielder& yielder, std::chrono::milliseconds time) {
  const auto end = std::chrono::steady_clock::now() + time;
  while (!yielder.Stopped() && std::chrono::steady_clock::now() < end)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  return yielder.Stopped();
}

/// What the system does: it calls the handler in a thread of its own and ends the program when that returns.
void CallAsSystem(DWORD event) {
  std::thread([event] {
    OnConsoleEvent(event);
    ExitProcess(kEndedByHandler);
  }).detach();
}

TEST(InterruptsDeathTest, TheEndOfTheSessionLeavesTimeToFinish) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  for (const DWORD event : {CTRL_CLOSE_EVENT, CTRL_LOGOFF_EVENT, CTRL_SHUTDOWN_EVENT}) {
    EXPECT_EXIT(
        {
          NoYielder yielder;
          {
            const InterruptGuard guard(yielder);
            CallAsSystem(event);
            if (!StopsWithin(yielder, std::chrono::seconds(10))) ExitProcess(kNoStop);
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
          }
          ExitProcess(kEndedInOrder);
        },
        testing::ExitedWithCode(kEndedInOrder), "");
  }
}

TEST(InterruptsDeathTest, TheEndOfTheSessionLeavesTimeThoughAStopIsPending) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  EXPECT_EXIT(
      {
        NoYielder yielder;
        const InterruptGuard guard(yielder);
        OnConsoleEvent(CTRL_C_EVENT);
        CallAsSystem(CTRL_CLOSE_EVENT);
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        ExitProcess(kEndedInOrder);
      },
      testing::ExitedWithCode(kEndedInOrder), "");
}

/// A console of the calling program alone, so that nobody else gets its events; false where there is none.
bool MakeOwnConsole() {
  FreeConsole();
  return AllocConsole() != 0;
}

/// What the console does at Ctrl-C; ends the program where there is no console.
void InterruptFromConsole() {
  if (!GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0)) ExitProcess(kNoConsole);
}

/// Ends the program in order when an event has stopped it.
void HeedEvent() {
  NoYielder yielder;
  const InterruptGuard guard(yielder);
  if (!MakeOwnConsole()) ExitProcess(kNoConsole);
  InterruptFromConsole();
  if (!StopsWithin(yielder, std::chrono::seconds(10))) ExitProcess(kNoStop);
  ExitProcess(kEndedInOrder);
}

/// Would go on in spite of two events.
void IgnoreEvents() {
  NoYielder yielder;
  const InterruptGuard guard(yielder);
  if (!MakeOwnConsole()) ExitProcess(kNoConsole);
  InterruptFromConsole();
  if (!StopsWithin(yielder, std::chrono::seconds(10))) ExitProcess(kNoStop);
  InterruptFromConsole();
  std::this_thread::sleep_for(std::chrono::seconds(10));
  ExitProcess(kEndedInOrder);
}

bool EndedBySystem(int status) {
  // Some systems tell an interrupted program from others by its status.
  constexpr int kInterrupted = static_cast<int>(0xC000013A);
  return status == kInterrupted || status == 0;
}

TEST(InterruptsDeathTest, ComeFromTheConsole) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  EXPECT_EXIT(HeedEvent(), testing::ExitedWithCode(kEndedInOrder), "");
}

TEST(InterruptsDeathTest, ASecondOneEndsTheProgram) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  EXPECT_EXIT(IgnoreEvents(), EndedBySystem, "");
}

}  // namespace
}  // namespace korv
