#include "app/run/remote_box.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "base/job_thread.h"
#include "tests/fakes/fake_event_loop.h"
#include "tests/fakes/fake_text_box.h"

namespace korv {
namespace {

class RemoteBoxes : public testing::Test {
 protected:
  /// Does `work` on a worker while the loop runs.
  void OnTheWorker(const std::function<void()>& work) {
    bool ended = false;
    worker.Post([&] {
      work();
      loop.Post([&ended] { ended = true; });
    });
    ASSERT_TRUE(loop.RunUntil([&ended] { return ended; }));
  }

  FakeEventLoop loop;
  LoopCalls calls{loop};
  FakeTextBox text;
  OutputBox box{text};
  RemoteBox remote{calls, box};
  JobThread worker;
};

TEST_F(RemoteBoxes, PassEverythingOn) {
  OnTheWorker([&] {
    EXPECT_TRUE(remote.OutputToTxb("old"));
    remote.Clear();
    EXPECT_TRUE(remote.OutputToTxb("one\r\n"));
    EXPECT_TRUE(remote.OutputToTxb("two"));
    EXPECT_EQ(remote.Room(), kTextBoxCapacity - 8);
    EXPECT_FALSE(remote.Full());
  });
  EXPECT_EQ(text.Text, "one\r\ntwo");
}

TEST_F(RemoteBoxes, TellThatTheBoxIsFullUntilItIsCleared) {
  text.Text.assign(kTextBoxCapacity + 1, 'x');
  OnTheWorker([&] {
    EXPECT_FALSE(remote.OutputToTxb("more"));
    EXPECT_TRUE(remote.Full());
    EXPECT_EQ(remote.Room(), 0U);
    EXPECT_EQ(remote.Kept(), kTextBoxCapacity + 1 - 256);
    remote.Clear();
    EXPECT_FALSE(remote.Full());
    EXPECT_TRUE(remote.OutputToTxb("fresh"));
  });
  EXPECT_EQ(text.Text, "fresh");
}

TEST_F(RemoteBoxes, TakeNothingOnceNobodyWaits) {
  calls.EndWaiting();
  OnTheWorker([&] {
    EXPECT_FALSE(remote.OutputToTxb("late"));
    EXPECT_EQ(remote.Room(), 0U);
    EXPECT_TRUE(remote.Full());
    remote.Clear();
    EXPECT_FALSE(remote.OutputToTxb("later"));
  });
  EXPECT_EQ(text.Text, "");
}

}  // namespace
}  // namespace korv
