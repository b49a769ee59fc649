#include "base/loop_calls.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/job_thread.h"
#include "tests/fakes/fake_event_loop.h"

namespace korv {
namespace {

using testing::ElementsAre;

class Calls : public testing::Test {
 protected:
  /// Whether the loop got to know of the end of the worker's job.
  bool WorkerEnds() {
    bool ended = false;
    worker.Post([&] { loop.Post([&ended] { ended = true; }); });
    return loop.RunUntil([&ended] { return ended; });
  }

  FakeEventLoop loop;
  LoopCalls calls{loop};
  JobThread worker;
};

TEST_F(Calls, AreDoneOnTheLoopsThreadInTheirOrder) {
  std::vector<std::string> done;
  std::vector<std::thread::id> threads;
  worker.Post([&] {
    calls.Post([&] {
      done.emplace_back("posted");
      threads.push_back(std::this_thread::get_id());
    });
    EXPECT_TRUE(calls.Call([&] {
      done.emplace_back("called");
      threads.push_back(std::this_thread::get_id());
    }));
    calls.Post([&] { done.emplace_back("posted later"); });
  });
  ASSERT_TRUE(WorkerEnds());
  EXPECT_THAT(done, ElementsAre("posted", "called", "posted later"));
  EXPECT_THAT(threads, testing::Each(std::this_thread::get_id()));
}

TEST_F(Calls, BringAnAnswerBack) {
  std::optional<std::string> answer;
  worker.Post([&] { answer = calls.Ask<std::string>([] { return std::string("yes"); }); });
  ASSERT_TRUE(WorkerEnds());
  EXPECT_EQ(answer, "yes");
}

TEST_F(Calls, ThrowOnTheWorkerWhatWasThrownOnTheLoop) {
  std::string told;
  bool after = false;
  worker.Post([&] {
    try {
      calls.Call([] { throw std::runtime_error("no paper"); });
    } catch (const std::exception& error) {
      told = error.what();
    }
    after = calls.Call([] {});
  });
  ASSERT_TRUE(WorkerEnds());
  EXPECT_EQ(told, "no paper");
  EXPECT_TRUE(after);
}

TEST_F(Calls, ThatWaitAreReleasedWhenWaitingEnds) {
  bool asked = false;
  bool posted = false;
  std::promise<std::optional<int>> answer;
  worker.Post([&] {
    answer.set_value(calls.Ask<int>([&asked] {
      asked = true;
      return 1;
    }));
    calls.Post([&posted] { posted = true; });
    EXPECT_FALSE(calls.Call([&asked] { asked = true; }));
  });
  while (loop.Posted() == 0) std::this_thread::yield();
  calls.EndWaiting();
  EXPECT_EQ(answer.get_future().get(), std::nullopt);
  ASSERT_TRUE(WorkerEnds());
  EXPECT_FALSE(asked);
  EXPECT_TRUE(posted);
}

TEST_F(Calls, AreNotDoneOnceClosed) {
  bool posted = false;
  bool called = true;
  std::promise<void> begun;
  worker.Post([&] {
    calls.Post([&posted] { posted = true; });
    begun.set_value();
    called = calls.Call([&posted] { posted = true; });
  });
  begun.get_future().wait();
  calls.Close();
  ASSERT_TRUE(WorkerEnds());
  EXPECT_FALSE(posted);
  EXPECT_FALSE(called);
}

TEST_F(Calls, OfAClosedCallerMayStillBeInTheLoop) {
  bool posted = false;
  {
    LoopCalls shortLived(loop);
    shortLived.Post([&posted] { posted = true; });
  }
  loop.RunPosted();
  EXPECT_FALSE(posted);
}

}  // namespace
}  // namespace korv
