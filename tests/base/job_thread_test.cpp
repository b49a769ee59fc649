#include "base/job_thread.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <vector>

namespace korv {
namespace {

using testing::ElementsAre;

TEST(JobThread, DoesJobsInTheirOrderOnAThreadOfItsOwn) {
  std::vector<int> done;
  std::vector<std::thread::id> threads;
  std::promise<void> last;
  JobThread jobs;
  for (int i = 0; i < 3; ++i)
    jobs.Post([&, i] {
      done.push_back(i);
      threads.push_back(std::this_thread::get_id());
      if (i == 2) last.set_value();
    });
  last.get_future().wait();
  EXPECT_THAT(done, ElementsAre(0, 1, 2));
  EXPECT_EQ(threads[0], threads[2]);
  EXPECT_NE(threads[0], std::this_thread::get_id());
}

TEST(JobThread, WaitsAtItsEndForTheJobThatIsBeingDoneAndDropsTheOthers) {
  bool first = false;
  bool second = false;
  auto kept = std::make_shared<int>();
  {
    std::promise<void> begun;
    std::promise<void> goOn;
    JobThread jobs;
    jobs.Post([&] {
      begun.set_value();
      goOn.get_future().wait();
      first = true;
    });
    jobs.Post([&second, kept] { second = true; });
    begun.get_future().wait();
    // The end of the thread has begun before the job ends, or the second job would be done.
    jobs.Post([] {});
    std::thread later([&goOn] {
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
      goOn.set_value();
    });
    later.detach();
  }
  EXPECT_TRUE(first);
  EXPECT_FALSE(second);
  EXPECT_EQ(kept.use_count(), 1);
}

TEST(JobThread, DestroysAJobBeforeItDoesTheNext) {
  auto kept = std::make_shared<int>();
  std::promise<long> users;
  JobThread jobs;
  jobs.Post([copy = kept] {});
  jobs.Post([&] { users.set_value(kept.use_count()); });
  EXPECT_EQ(users.get_future().get(), 1);
}

}  // namespace
}  // namespace korv
