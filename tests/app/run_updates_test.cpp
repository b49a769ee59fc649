#include "app/run/run_updates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/job_thread.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_observer.h"

namespace korv {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Updates : public testing::Test {
 protected:
  FakeEventLoop loop;
  LoopCalls calls{loop};
  FakeObserver window;
  RunUpdates updates{calls, window};
};

TEST_F(Updates, ReachTheWindowInTheOrderInWhichTheyCame) {
  updates.InputFile("a.txt");
  updates.Sizes("1 KB", "");
  updates.Status("Now sorting ...");
  updates.FileKind("UTF-8");
  updates.ClearOutput();
  updates.Notice("b was skipped");
  EXPECT_THAT(window.Told, IsEmpty());
  loop.RunPosted();
  EXPECT_THAT(window.Told, ElementsAre("file a.txt", "sizes 1 KB,", "status Now sorting ...", "kind UTF-8",
                                       "clear", "notice b was skipped"));
}

TEST_F(Updates, OfTheFileThatIsReadAreOnlyTheLastAndWaitToBeFlushed) {
  for (const char* name : {"a", "b", "c"}) {
    updates.InputFile(name);
    updates.Sizes(name, name);
    updates.FileKind(name);
    updates.TextProgress(name);
  }
  EXPECT_EQ(loop.Posted(), 0U);
  updates.Flush();
  updates.Flush();
  EXPECT_EQ(loop.Posted(), 1U);
  loop.RunPosted();
  EXPECT_THAT(window.Told, ElementsAre("file c", "sizes c,c", "kind c", "bar c"));
  updates.Flush();
  EXPECT_EQ(loop.Posted(), 0U);
}

TEST_F(Updates, ComeBeforeTheQuestionThatFollowsThem) {
  JobThread worker;
  bool ended = false;
  std::optional<std::string> chosen;
  worker.Post([&] {
    updates.InputFile("a.txt");
    chosen = updates.ChooseOutputFile();
    loop.Post([&ended] { ended = true; });
  });
  ASSERT_TRUE(loop.RunUntil([&ended] { return ended; }));
  EXPECT_EQ(chosen, "out.txt");
  EXPECT_THAT(window.Told, ElementsAre("file a.txt", "choose"));
}

TEST_F(Updates, ChooseNoFileOnceNobodyIsThereToAnswer) {
  calls.EndWaiting();
  EXPECT_EQ(updates.ChooseOutputFile(), std::nullopt);
}

TEST_F(Updates, MayComeWhileOthersAreTaken) {
  JobThread worker;
  bool ended = false;
  worker.Post([&] {
    for (int i = 0; i < 1000; ++i) {
      updates.Notice(std::to_string(i));
      updates.InputFile(std::to_string(i));
    }
    updates.Flush();
    loop.Post([&ended] { ended = true; });
  });
  ASSERT_TRUE(loop.RunUntil([&ended] { return ended; }));
  std::vector<std::string> notices;
  for (const std::string& told : window.Told)
    if (told.starts_with("notice ")) notices.push_back(told);
  ASSERT_EQ(notices.size(), 1000U);
  EXPECT_EQ(notices.front(), "notice 0");
  EXPECT_EQ(notices.back(), "notice 999");
  EXPECT_EQ(window.Told.back(), "file 999");
}

}  // namespace
}  // namespace korv
