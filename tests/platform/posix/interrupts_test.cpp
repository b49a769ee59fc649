#include "platform/interrupts.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "base/yielder.h"
#include "platform/files.h"
#include "tests/platform/temporary_folder.h"

namespace korv {
namespace {

namespace fs = std::filesystem;

TEST(Interrupts, TheFirstOneRequestsAStop) {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    NoYielder yielder;
    const InterruptGuard guard(yielder);
    EXPECT_FALSE(yielder.Stopped());
    raise(number);
    EXPECT_TRUE(yielder.Stopped()) << number;
  }
}

TEST(InterruptsDeathTest, ASecondOneEndsTheProgramWhateverHasBecomeOfTheFirst) {
  for (const bool heeded : {false, true})
    for (const int second : {SIGINT, SIGTERM, SIGHUP})
      EXPECT_EXIT(
          {
            NoYielder yielder;
            const InterruptGuard guard(yielder);
            raise(SIGINT);
            if (heeded) yielder.ClearStop();
            raise(second);
            _exit(0);
          },
          testing::KilledBySignal(second), "")
          << second;
}

TEST(InterruptsDeathTest, EndTheProgramAtOnceWhereNoStopIsMeant) {
  for (const int number : {SIGQUIT, SIGPIPE})
    EXPECT_EXIT(
        {
          rlimit none{};
          setrlimit(RLIMIT_CORE, &none);
          NoYielder yielder;
          const InterruptGuard guard(yielder);
          raise(number);
          _exit(0);
        },
        testing::KilledBySignal(number), "");
}

TEST(InterruptsDeathTest, EndTheProgramAsUsualAfterTheGuard) {
  NoYielder yielder;
  { const InterruptGuard guard(yielder); }
  EXPECT_EXIT(raise(SIGINT), testing::KilledBySignal(SIGINT), "");
  EXPECT_FALSE(yielder.Stopped());
}

TEST(InterruptsDeathTest, WhatOutlivesItsTerminalIsNotStopped) {
  EXPECT_EXIT(
      {
        signal(SIGHUP, SIG_IGN);
        NoYielder yielder;
        const InterruptGuard guard(yielder);
        raise(SIGHUP);
        raise(SIGHUP);
        _exit(yielder.Stopped() ? 1 : 0);
      },
      testing::ExitedWithCode(0), "");
}

// What is not complete goes, and what was there before stays as it was.
TEST(InterruptsDeathTest, ASignalThatEndsTheProgramLeavesNoTemporaryFiles) {
  const TemporaryFolder folder;
  const fs::path report = folder / "report.txt";
  const fs::path temporary = folder / "temporary";
  fs::create_directory(temporary);
  WriteTestFile(report, "old");
  for (const int number : {SIGINT, SIGTERM, SIGQUIT, SIGPIPE}) {
    EXPECT_EXIT(
        {
          rlimit none{};
          setrlimit(RLIMIT_CORE, &none);
          setenv("TMPDIR", temporary.c_str(), 1);
          NoYielder yielder;
          const InterruptGuard guard(yielder);
          const auto files = MakeSystemFiles();
          auto replacing = files->OpenForWriting(report);
          (*replacing)->Write("new");
          const fs::path made = *files->CreatePrivateTemporaryFolder();
          files->CreateFolder(made / "inner");
          auto kept = files->OpenForWriting(made / "inner" / "kept.xml");
          (*kept)->Write("text");
          (*kept)->Commit();
          auto open = files->OpenForWriting(made / "inner" / "open.xml");
          (*open)->Write("text");
          if (fs::is_empty(temporary)) _exit(0);
          raise(number);
          raise(number);
          _exit(0);
        },
        testing::KilledBySignal(number), "");
    EXPECT_EQ(ReadTestFile(report), "old");
    EXPECT_TRUE(fs::is_empty(temporary)) << number;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 2) << number;
  }
}

TEST(InterruptsDeathTest, AFileThatOutgrowsItsLimitIsAnErrorOfTheWrite) {
  const TemporaryFolder folder;
  const fs::path report = folder / "report.txt";
  WriteTestFile(report, "old");
  EXPECT_EXIT(
      {
        rlimit few{};
        few.rlim_cur = few.rlim_max = 10;
        setrlimit(RLIMIT_FSIZE, &few);
        NoYielder yielder;
        const InterruptGuard guard(yielder);
        {
          const auto files = MakeSystemFiles();
          auto file = files->OpenForWriting(report);
          const auto fault = (*file)->Write(std::string(100, 'x'));
          if (!fault || fault->Fault != FileFault::NoSpace || !(*file)->Commit()) _exit(1);
        }
        _exit(0);
      },
      testing::ExitedWithCode(0), "");
  EXPECT_EQ(ReadTestFile(report), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1);
}

// The stop may come before the waiting begins, when nothing would ever interrupt it again.
TEST(Interrupts, AStopIsTheEndOfAPipeThatNobodyWrites) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  NoYielder yielder;
  const InterruptGuard guard(yielder);
  const auto pipe = MakeSystemFiles()->OpenForReading("/dev/fd/" + std::to_string(ends[0]));
  ASSERT_TRUE(pipe);
  raise(SIGTERM);
  char byte;
  EXPECT_EQ(*(*pipe)->Read({&byte, 1}), 0u);
  close(ends[0]);
  close(ends[1]);
}

}  // namespace
}  // namespace korv
