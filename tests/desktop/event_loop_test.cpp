// The event loop of the windows, as other threads see it.

#include "desktop/toolkit/qt_event_loop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <QTimer>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace korv {
namespace {

using testing::ElementsAre;

class EventLoops : public testing::Test {
 protected:
  std::vector<std::string> done;
  std::vector<std::string> failures;
  QtEventLoop loop{[this](const std::exception_ptr& thrown) {
    try {
      std::rethrow_exception(thrown);
    } catch (const std::exception& error) {
      failures.emplace_back(error.what());
    }
  }};
};

TEST_F(EventLoops, DoOnTheirThreadWhatAnotherPostsInItsOrder) {
  std::vector<int> taken;
  const auto here = std::this_thread::get_id();
  std::jthread other([&] {
    for (int i = 0; i < 100; ++i)
      loop.Post([&, i] {
        EXPECT_EQ(std::this_thread::get_id(), here);
        taken.push_back(i);
      });
  });
  ASSERT_TRUE(QTest::qWaitFor([&] { return taken.size() == 100; }));
  EXPECT_TRUE(std::ranges::is_sorted(taken));
}

TEST_F(EventLoops, LetOtherEventsPassBetweenTasks) {
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] { done.emplace_back("timer"); });
  timer.start(0);
  // Each task is followed by another one, without end.
  int tasks = 0;
  std::function<void()> task = [&] {
    if (++tasks < 100'000 && done.empty()) loop.Post(task);
  };
  loop.Post(task);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !done.empty(); }));
  EXPECT_LT(tasks, 100);
}

TEST_F(EventLoops, GoOnWhileATaskWaitsInALoopOfItsOwn) {
  bool released = false;
  loop.Post([&] {
    done.emplace_back("box opens");
    EXPECT_TRUE(QTest::qWaitFor([&] { return released; }));
    done.emplace_back("box closes");
  });
  loop.Post([&] { done.emplace_back("task"); });
  loop.Post([&] { released = true; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return done.size() == 3; }));
  EXPECT_THAT(done, ElementsAre("box opens", "task", "box closes"));
}

TEST_F(EventLoops, HandOverWhatATaskThrowsAndGoOn) {
  loop.Post([] { throw std::runtime_error("no colours left"); });
  loop.Post([&] { done.emplace_back("next"); });
  ASSERT_TRUE(QTest::qWaitFor([&] { return !done.empty(); }));
  EXPECT_THAT(failures, ElementsAre("no colours left"));
}

TEST(EventLoop, ForgetsItsTasksWhenItEnds) {
  auto kept = std::make_shared<int>();
  {
    QtEventLoop loop([](const std::exception_ptr&) {});
    loop.Post([kept] { ADD_FAILURE() << "nobody is there"; });
  }
  QCoreApplication::processEvents();
  EXPECT_EQ(kept.use_count(), 1);
}

}  // namespace
}  // namespace korv
