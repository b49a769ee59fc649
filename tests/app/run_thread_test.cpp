#include "app/run/run_thread.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "app/run/questions.h"
#include "sources/questions.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/fake_observer.h"
#include "tests/fakes/fake_text_box.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A thread whose yielder has its turn at every step.
class EveryTurn final : public TurnYielder {
 protected:
  uint32_t NextStride() override {
    HandOver();
    return 1;
  }
};

class RunThreads : public testing::Test {
 protected:
  bool UntilIdle() {
    return loop.RunUntil([this] { return thread->Idle(); });
  }
  /// Work that goes on until it is stopped.
  std::function<void()> UntilStopped() {
    return [this] {
      begun.set_value();
      while (!thread->Yielder().Stopped()) std::this_thread::yield();
    };
  }
  static void Ignore(const std::exception_ptr& thrown) { EXPECT_EQ(thrown, nullptr); }

  FakeEventLoop loop;
  FakeMessages messages;
  FakeObserver observer;
  FakeTextBox text;
  OutputBox box{text};
  EveryTurn yielder;
  std::promise<void> begun;
  std::unique_ptr<RunThread> thread =
      std::make_unique<RunThread>(RunThread::Window{loop, messages, observer, box}, yielder);
};

TEST_F(RunThreads, DoTheirWorkElsewhereAndTellItsEndHere) {
  std::thread::id worker;
  std::thread::id told;
  RunActivity before = RunActivity::None;
  thread->Start(
      RunActivity::Counting, [&] { worker = std::this_thread::get_id(); },
      [&](const std::exception_ptr& thrown) {
        EXPECT_EQ(thrown, nullptr);
        EXPECT_EQ(thread->Doing(), RunActivity::Counting);
        EXPECT_FALSE(thread->Working());
        told = std::this_thread::get_id();
      });
  before = thread->Doing();
  EXPECT_TRUE(thread->Working());
  ASSERT_TRUE(UntilIdle());
  EXPECT_EQ(before, RunActivity::Counting);
  EXPECT_NE(worker, std::this_thread::get_id());
  EXPECT_EQ(told, std::this_thread::get_id());
}

TEST_F(RunThreads, HandOverWhatTheWorkThrew) {
  std::string told;
  thread->Start(
      RunActivity::Listing, [] { throw std::runtime_error("out of ink"); },
      [&](const std::exception_ptr& thrown) {
        try {
          std::rethrow_exception(thrown);
        } catch (const std::exception& error) {
          told = error.what();
        }
      });
  ASSERT_TRUE(UntilIdle());
  EXPECT_EQ(told, "out of ink");
}

TEST_F(RunThreads, StopTheirWorkWhenAskedAndBeginTheNextWithoutAStop) {
  thread->Start(RunActivity::Counting, UntilStopped(), Ignore);
  begun.get_future().wait();
  thread->RequestStop();
  ASSERT_TRUE(UntilIdle());
  bool stopped = true;
  thread->Start(
      RunActivity::Counting, [&] { stopped = thread->Yielder().Stopped(); }, Ignore);
  ASSERT_TRUE(UntilIdle());
  EXPECT_FALSE(stopped);
}

TEST_F(RunThreads, AskTheirQuestionsHereAndWaitForTheAnswer) {
  std::thread::id asked;
  Answer answer = Answer::Ok;
  std::optional<std::string> typed;
  messages.WillAnswer(questions::kKeepFilter, Answer::No);
  messages.WillType("other.txt");
  messages.OnShow = [&](const Message&) { asked = std::this_thread::get_id(); };
  thread->Start(
      RunActivity::Counting,
      [&] {
        answer = thread->Messages().Show({.Text = "Keep it?",
                                          .Title = "Filter",
                                          .Buttons = Buttons::YesNo,
                                          .DefaultAnswer = Answer::Yes,
                                          .Question = questions::kKeepFilter});
        typed = thread->Messages().AskText("Which file?", "Output", "out.txt");
      },
      Ignore);
  ASSERT_TRUE(UntilIdle());
  EXPECT_EQ(asked, std::this_thread::get_id());
  EXPECT_EQ(answer, Answer::No);
  EXPECT_EQ(typed, "other.txt");
}

TEST_F(RunThreads, AskNothingMoreOnceAbandonedAndStillTellTheirEnd) {
  struct Case {
    Buttons Choice;
    Question What;
    Answer Expected;
  };
  const std::vector<Case> cases = {{Buttons::Ok, Question(), Answer::Ok},
                                   {Buttons::YesNo, questions::kCountingInterrupted, Answer::No},
                                   {Buttons::YesNo, questions::kStopDocx, Answer::Yes},
                                   {Buttons::YesNoCancel, questions::kLargeInput, Answer::Cancel}};
  std::vector<Answer> answers;
  std::optional<std::string> typed = "none";
  bool told = false;
  thread->Start(
      RunActivity::Counting,
      [&] {
        UntilStopped()();
        for (const Case& row : cases)
          answers.push_back(thread->Messages().Show({.Text = "?",
                                                     .Title = "?",
                                                     .Buttons = row.Choice,
                                                     .DefaultAnswer = Answer::Yes,
                                                     .Question = row.What}));
        typed = thread->Messages().AskText("?", "?", "x");
      },
      [&](const std::exception_ptr&) { told = true; });
  begun.get_future().wait();
  thread->Abandon();
  ASSERT_TRUE(UntilIdle());
  for (size_t i = 0; i < cases.size(); ++i) EXPECT_EQ(answers[i], cases[i].Expected) << i;
  EXPECT_EQ(typed, std::nullopt);
  EXPECT_TRUE(told);
  EXPECT_THAT(messages.Shown, IsEmpty());
}

TEST_F(RunThreads, EndWhileTheirWorkWaitsForAnAnswer) {
  std::promise<Answer> answer;
  thread->Start(
      RunActivity::Counting,
      [&, t = thread.get()] {
        answer.set_value(t->Messages().Show({.Text = "?",
                                             .Title = "?",
                                             .Buttons = Buttons::YesNo,
                                             .DefaultAnswer = Answer::Yes,
                                             .Question = questions::kKeepFilter}));
      },
      [](const std::exception_ptr&) { ADD_FAILURE() << "nobody is there to be told"; });
  while (loop.Posted() == 0) std::this_thread::yield();
  thread.reset();
  EXPECT_EQ(answer.get_future().get(), Answer::No);
  loop.RunPosted();
  EXPECT_THAT(messages.Shown, IsEmpty());
}

TEST_F(RunThreads, StopWhatGoesOnWhenTheyEnd) {
  thread->Start(
      RunActivity::ReadingWords,
      [this, t = thread.get()] {
        begun.set_value();
        while (!t->Yielder().Stopped()) std::this_thread::yield();
      },
      [](const std::exception_ptr&) { ADD_FAILURE() << "nobody is there to be told"; });
  begun.get_future().wait();
  thread.reset();
  loop.RunPosted();
}

TEST_F(RunThreads, DoWhatWaitsForThemInItsOrder) {
  std::vector<std::string> done;
  const auto note = [&](const char* what) { return [&done, what] { done.emplace_back(what); }; };
  thread->WhenIdle(note("at once"));
  thread->Start(RunActivity::Counting, UntilStopped(),
                [&](const std::exception_ptr&) { done.emplace_back("end"); });
  thread->WhenIdle([&] {
    done.emplace_back("another run");
    begun = {};
    thread->Start(
        RunActivity::Listing, [] {}, [&](const std::exception_ptr&) { done.emplace_back("its end"); });
  });
  thread->WhenIdle(note("after both"));
  EXPECT_THAT(done, ElementsAre("at once"));
  thread->RequestStop();
  ASSERT_TRUE(loop.RunUntil([&] { return done.size() == 5; }));
  EXPECT_THAT(done, ElementsAre("at once", "end", "another run", "its end", "after both"));
}

TEST_F(RunThreads, GoOverFromOneActivityIntoAnotherWithoutBeingIdle) {
  std::vector<std::string> done;
  thread->OnIdle([&] { done.emplace_back(thread->Idle() ? "idle" : "busy"); });
  thread->Start(
      RunActivity::Counting, [] {},
      [&](const std::exception_ptr&) {
        done.emplace_back("counted");
        thread->Start(
            RunActivity::Listing, [] {}, [&](const std::exception_ptr&) { done.emplace_back("listed"); });
        EXPECT_EQ(thread->Doing(), RunActivity::Listing);
      });
  thread->WhenIdle([&] { done.emplace_back("after both"); });
  ASSERT_TRUE(UntilIdle());
  EXPECT_THAT(done, ElementsAre("counted", "listed", "idle", "after both"));
}

TEST_F(RunThreads, ForgetWhatWaitsForThemWhenAbandoned) {
  std::vector<std::string> done;
  thread->Start(RunActivity::Counting, UntilStopped(),
                [&](const std::exception_ptr&) { done.emplace_back("end"); });
  thread->WhenIdle([&] { done.emplace_back("after"); });
  begun.get_future().wait();
  EXPECT_FALSE(thread->Abandoned());
  thread->Abandon();
  EXPECT_TRUE(thread->Abandoned());
  ASSERT_TRUE(UntilIdle());
  EXPECT_THAT(done, ElementsAre("end"));
}

TEST_F(RunThreads, StandStillWhileTheyAreHeld) {
  std::atomic<int> turns = 0;
  thread->Start(
      RunActivity::Counting,
      [&] {
        thread->OnTurn([&] { ++turns; });
        begun.set_value();
        while (!thread->Yielder().Stopped()) thread->Yielder().Yield();
      },
      Ignore);
  begun.get_future().wait();
  {
    const RunThread::Hold hold(*thread);
    // The turn that goes on may still end.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const int then = turns;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(turns, then);
    thread->RequestStop();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(loop.Posted(), 0U) << "it tells its end while it is held";
  }
  ASSERT_TRUE(UntilIdle());
}

TEST_F(RunThreads, TellNoEndWhileTheyAreHeldThatWasOnItsWay) {
  bool told = false;
  thread->Start(
      RunActivity::Counting, [] {}, [&](const std::exception_ptr&) { told = true; });
  while (loop.Posted() == 0) std::this_thread::yield();
  {
    const RunThread::Hold hold(*thread);
    loop.RunPosted();
    EXPECT_FALSE(told);
    EXPECT_FALSE(thread->Idle());
  }
  ASSERT_TRUE(UntilIdle());
  EXPECT_TRUE(told);
}

TEST_F(RunThreads, ShowWhatTheyAreToldAtTheirTurnsAndAtTheirEnd) {
  thread->Start(
      RunActivity::Counting,
      [&] {
        thread->Observer().InputFile("a.txt");
        thread->Yielder().Yield();
        thread->Box().OutputToTxb("listed\r\n");
        thread->Observer().InputFile("b.txt");
      },
      [&](const std::exception_ptr&) {
        EXPECT_THAT(observer.Told, ElementsAre("file a.txt", "file b.txt"));
      });
  ASSERT_TRUE(UntilIdle());
  EXPECT_EQ(text.Text, "listed\r\n");
}

TEST_F(RunThreads, AskNothingWhileTheyAreHeld) {
  thread->Start(
      RunActivity::Counting,
      [&] {
        begun.get_future().wait();
        thread->Messages().Show({.Text = "?", .Title = "?"});
      },
      Ignore);
  {
    const RunThread::Hold hold(*thread);
    begun.set_value();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(loop.Posted(), 0U);
  }
  ASSERT_TRUE(UntilIdle());
  EXPECT_EQ(messages.Shown.size(), 1U);
}

TEST_F(RunThreads, TakeTheirTurnOnTheWorkerWhileTheWorkGoesOn) {
  int turns = 0;
  std::thread::id worker;
  std::thread::id turn;
  thread->Start(
      RunActivity::Counting,
      [&] {
        worker = std::this_thread::get_id();
        thread->OnTurn([&] {
          ++turns;
          turn = std::this_thread::get_id();
        });
        for (int i = 0; i < 3; ++i) thread->Yielder().Yield();
      },
      Ignore);
  ASSERT_TRUE(UntilIdle());
  EXPECT_EQ(turns, 3);
  EXPECT_EQ(turn, worker);
  thread->Start(
      RunActivity::Listing, [&] { thread->Yielder().Yield(); }, Ignore);
  ASSERT_TRUE(UntilIdle());
  EXPECT_EQ(turns, 3) << "that was for the work before";
}

/// Notes the thread on which it dies.
struct Mortal {
  explicit Mortal(std::promise<std::thread::id>& died) : Died(died) {}
  ~Mortal() { Died.set_value(std::this_thread::get_id()); }
  Mortal(const Mortal&) = delete;
  Mortal& operator=(const Mortal&) = delete;
  std::promise<std::thread::id>& Died;
};

TEST_F(RunThreads, FreeWhatTheyShareElsewhere) {
  std::promise<std::thread::id> died;
  auto shared = thread->Share(std::make_unique<Mortal>(died));
  auto view = shared;
  shared.reset();
  view.reset();
  EXPECT_TRUE(thread->Idle());
  EXPECT_NE(died.get_future().get(), std::this_thread::get_id());
}

TEST_F(RunThreads, LeaveWhatOutlivesThemToItsLastOwner) {
  std::promise<std::thread::id> died;
  auto shared = thread->Share(std::make_unique<Mortal>(died));
  thread.reset();
  shared.reset();
  EXPECT_EQ(died.get_future().get(), std::this_thread::get_id());
}

TEST_F(RunThreads, FreeWhatTheirWorkHeldElsewhere) {
  std::promise<std::thread::id> died;
  auto held = std::make_shared<Mortal>(died);
  thread->Start(
      RunActivity::Counting, [held = std::move(held)] {}, Ignore);
  EXPECT_NE(died.get_future().get(), std::this_thread::get_id());
  ASSERT_TRUE(UntilIdle());
}

}  // namespace
}  // namespace korv
