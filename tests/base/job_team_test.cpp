#include "base/job_team.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

#include "tests/fakes/fake_yielder.h"

namespace korv {
namespace {

/// Notes where it was done and in which turn.
struct NotingJob final : TeamJob {
  explicit NotingJob(std::atomic<int>& turns) : Turns(turns) {}

  std::atomic<int>& Turns;
  int Turn = -1;
  size_t Worker = 99;
  std::thread::id Thread;
  bool Fails = false;

 protected:
  void Do(size_t worker) override {
    Turn = Turns++;
    Worker = worker;
    Thread = std::this_thread::get_id();
    if (Fails) throw std::runtime_error("worn out");
  }
};

std::vector<std::unique_ptr<NotingJob>> Jobs(size_t count, std::atomic<int>& turns) {
  std::vector<std::unique_ptr<NotingJob>> jobs;
  for (size_t i = 0; i < count; ++i) jobs.push_back(std::make_unique<NotingJob>(turns));
  return jobs;
}

TEST(JobTeam, DoesEveryJobOnceOnAThreadOfItsOwn) {
  for (const size_t threads : {size_t{2}, size_t{3}, size_t{16}}) {
    std::atomic<int> turns{0};
    const auto jobs = Jobs(100, turns);
    JobTeam team(threads);
    NoYielder yielder;
    for (const auto& job : jobs) team.Add(*job);
    for (const auto& job : jobs) {
      team.Wait(*job, yielder);
      EXPECT_NE(job->Turn, -1);
      EXPECT_LT(job->Worker, team.Workers());
      EXPECT_NE(job->Thread, std::this_thread::get_id());
    }
    EXPECT_EQ(turns, 100);
  }
}

TEST(JobTeam, OfOneThreadDoesJobsInTheirOrderWhereTheyAreWaitedFor) {
  std::atomic<int> turns{0};
  const auto jobs = Jobs(5, turns);
  JobTeam team(1);
  FakeYielder yielder;
  for (const auto& job : jobs) team.Add(*job);
  EXPECT_EQ(turns, 0);
  team.Wait(*jobs[2], yielder);
  EXPECT_EQ(turns, 3);
  EXPECT_EQ(yielder.Calls, 3u);
  team.Wait(*jobs[0], yielder);
  team.Wait(*jobs[4], yielder);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(jobs[static_cast<size_t>(i)]->Turn, i);
  EXPECT_EQ(jobs[4]->Thread, std::this_thread::get_id());
}

TEST(JobTeam, ThrowsWhatAJobThrewToWhomWaitsForItAndToNobodyElse) {
  for (const size_t threads : {size_t{1}, size_t{2}}) {
    std::atomic<int> turns{0};
    const auto jobs = Jobs(3, turns);
    jobs[1]->Fails = true;
    JobTeam team(threads);
    NoYielder yielder;
    for (const auto& job : jobs) team.Add(*job);
    team.Wait(*jobs[2], yielder);
    EXPECT_THROW(team.Wait(*jobs[1], yielder), std::runtime_error);
    team.Wait(*jobs[0], yielder);
    // It can be done again.
    jobs[1]->Fails = false;
    team.Add(*jobs[1]);
    team.Wait(*jobs[1], yielder);
    EXPECT_EQ(turns, 4);
  }
}

TEST(JobTeam, DropsAtItsEndWhatNobodyWaitedFor) {
  std::atomic<int> turns{0};
  const auto jobs = Jobs(3, turns);
  {
    JobTeam team(1);
    for (const auto& job : jobs) team.Add(*job);
  }
  EXPECT_EQ(turns, 0);
}

}  // namespace
}  // namespace korv
