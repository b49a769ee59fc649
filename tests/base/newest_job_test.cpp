#include "base/newest_job.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <stdexcept>
#include <thread>
#include <vector>

#include "tests/fakes/fake_event_loop.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NewestJobs : public testing::Test {
 protected:
  void UntilIdle() {
    ASSERT_TRUE(loop.RunUntil([this] { return job.Idle(); }));
  }
  /// Tells `n` when it is done.
  std::function<void(NewestJob::Turn&)> Telling(int n) {
    return [this, n](NewestJob::Turn& turn) { turn.Tell([this, n] { told.push_back(n); }); };
  }

  FakeEventLoop loop;
  std::vector<int> told;
  NewestJob job{loop};
};

TEST_F(NewestJobs, AreIdleAtFirst) {
  EXPECT_TRUE(job.Idle());
}

TEST_F(NewestJobs, TellInOrderOnTheThreadOfTheLoop) {
  std::vector<std::thread::id> threads;
  job.Start([&](NewestJob::Turn& turn) {
    for (const int n : {1, 2, 3})
      turn.Tell([&, n] {
        told.push_back(n);
        threads.push_back(std::this_thread::get_id());
      });
  });
  EXPECT_FALSE(job.Idle());
  UntilIdle();
  EXPECT_THAT(told, ElementsAre(1, 2, 3));
  EXPECT_THAT(threads, testing::Each(std::this_thread::get_id()));
}

TEST_F(NewestJobs, AreStoppedByANewerOne) {
  std::promise<void> begun;
  bool sawStop = false;
  job.Start([&](NewestJob::Turn& turn) {
    begun.set_value();
    while (!turn.Yielder().Stopped()) std::this_thread::yield();
    sawStop = true;
    turn.Tell([this] { told.push_back(1); });
  });
  begun.get_future().wait();
  job.Start(Telling(2));
  UntilIdle();
  EXPECT_TRUE(sawStop);
  EXPECT_THAT(told, ElementsAre(2));
}

TEST_F(NewestJobs, AreNotBegunWhenANewerOneWaits) {
  std::promise<void> begun;
  std::promise<void> go;
  std::vector<int> done;
  job.Start([&](NewestJob::Turn&) {
    begun.set_value();
    go.get_future().wait();
    done.push_back(1);
  });
  begun.get_future().wait();
  job.Start([&](NewestJob::Turn&) { done.push_back(2); });
  job.Start([&](NewestJob::Turn&) { done.push_back(3); });
  go.set_value();
  UntilIdle();
  EXPECT_THAT(done, ElementsAre(1, 3));
}

TEST_F(NewestJobs, AreNotHeardOfAfterAStopThoughTheyHaveTold) {
  std::promise<void> done;
  job.Start([&](NewestJob::Turn& turn) {
    turn.Tell([this] { told.push_back(1); });
    done.set_value();
  });
  done.get_future().wait();
  job.Stop();
  EXPECT_TRUE(job.Idle());
  job.Start(Telling(2));
  UntilIdle();
  EXPECT_THAT(told, ElementsAre(2));
}

TEST_F(NewestJobs, ThrowInTheLoop) {
  job.Start([](NewestJob::Turn&) { throw std::runtime_error("no room"); });
  EXPECT_THROW(UntilIdle(), std::runtime_error);
  EXPECT_TRUE(job.Idle());
}

TEST(ANewestJob, EndsWithItsOwner) {
  FakeEventLoop loop;
  std::vector<int> told;
  bool ended = false;
  {
    NewestJob job(loop);
    std::promise<void> begun;
    job.Start([&](NewestJob::Turn& turn) {
      turn.Tell([&] { told.push_back(1); });
      begun.set_value();
      while (!turn.Yielder().Stopped()) std::this_thread::yield();
      ended = true;
    });
    begun.get_future().wait();
  }
  EXPECT_TRUE(ended);
  loop.RunPosted();
  EXPECT_THAT(told, IsEmpty());
}

}  // namespace
}  // namespace korv
