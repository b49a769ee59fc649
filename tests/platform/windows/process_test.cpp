#include "platform/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <chrono>
#include <cstdio>
#include <iostream>
#include <thread>

#include "platform/interrupts.h"
#include "platform/windows/console_events.h"
#include "platform/windows/handle.h"
#include "tests/platform/temporary_folder.h"

namespace korv {
namespace {

namespace fs = std::filesystem;

/// Makes something open this program's standard input for as long as it lives.
class InputIs {
 public:
  explicit InputIs(const Handle& file) : before_(GetStdHandle(STD_INPUT_HANDLE)) {
    SetStdHandle(STD_INPUT_HANDLE, file.Get());
  }
  ~InputIs() { SetStdHandle(STD_INPUT_HANDLE, before_); }
  InputIs(const InputIs&) = delete;
  InputIs& operator=(const InputIs&) = delete;

 private:
  HANDLE before_;
};

struct Pipe {
  Handle Reader;
  Handle Writer;
};

Pipe MakePipe() {
  HANDLE reader = INVALID_HANDLE_VALUE;
  HANDLE writer = INVALID_HANDLE_VALUE;
  EXPECT_TRUE(CreatePipe(&reader, &writer, nullptr, 0));
  return {Handle(reader), Handle(writer)};
}

void WriteTo(const Handle& file, const std::string& bytes) {
  DWORD written = 0;
  ASSERT_TRUE(WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
}

TEST(StandardInput, APipeIsReadByteByByteToItsEnd) {
  Pipe pipe = MakePipe();
  const InputIs redirected(pipe.Reader);
  NoYielder yielder;
  const auto input = OpenStandardInput(yielder);
  const std::string bytes("a\r\n\x1A\0z\xFF", 7);
  WriteTo(pipe.Writer, bytes);
  char buffer[100];
  const auto got = input->Read(buffer);
  ASSERT_TRUE(got);
  EXPECT_EQ(std::string(buffer, *got), bytes);
  pipe.Writer.Close();
  const auto end = input->Read(buffer);
  ASSERT_TRUE(end);
  EXPECT_EQ(*end, 0U);
  EXPECT_EQ(input->Size(), 0U);
}

TEST(StandardInput, AFileIsReadToItsEnd) {
  const TemporaryFolder folder;
  WriteTestFile(folder / "a.txt", "a\r\nb");
  const Handle file(
      CreateFileW((folder / "a.txt").c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
  const InputIs redirected(file);
  NoYielder yielder;
  const auto input = OpenStandardInput(yielder);
  char buffer[100];
  EXPECT_EQ(*input->Read(buffer), 4U);
  EXPECT_EQ(*input->Read(buffer), 0U);
}

TEST(StandardInput, AClosedOneIsAnError) {
  const InputIs closed{Handle()};
  NoYielder yielder;
  char buffer[10];
  EXPECT_FALSE(OpenStandardInput(yielder)->Read(buffer));
}

TEST(StandardInput, EndsWhereAStopWasRequested) {
  const Pipe pipe = MakePipe();
  const InputIs redirected(pipe.Reader);
  WriteTo(pipe.Writer, "words");
  NoYielder yielder;
  yielder.RequestStop();
  char buffer[10];
  const auto got = OpenStandardInput(yielder)->Read(buffer);
  ASSERT_TRUE(got);
  EXPECT_EQ(*got, 0U);
}

TEST(StandardInput, AnInterruptEndsAReadThatWaits) {
  const Pipe pipe = MakePipe();
  const InputIs redirected(pipe.Reader);
  NoYielder yielder;
  const auto input = OpenStandardInput(yielder);
  for (int k = 0; k < 3; ++k) {
    const InterruptGuard guard(yielder);
    std::thread interrupt([] {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      EXPECT_TRUE(OnConsoleEvent(CTRL_C_EVENT));
    });
    char buffer[10];
    const auto got = input->Read(buffer);  // Nobody ever writes.
    interrupt.join();
    ASSERT_TRUE(got);
    EXPECT_EQ(*got, 0U);
    EXPECT_TRUE(yielder.Stopped());
    yielder.ClearStop();
  }
  WriteTo(pipe.Writer, "words");
  char buffer[10];
  EXPECT_EQ(*input->Read(buffer), 5U) << "what comes later is read as ever";
}

// ---- What a program is started with

constexpr const wchar_t* kArgumentsFile = L"KORV_TEST_ARGUMENTS";

/// The other end of the test below.
TEST(ProgramArgumentsChild, DISABLED_WritesWhatItWasStartedWith) {
  wchar_t file[MAX_PATH];
  ASSERT_NE(GetEnvironmentVariableW(kArgumentsFile, file, MAX_PATH), 0U);
  std::string all;
  for (const std::string& argument : ProgramArguments(0, nullptr)) all += argument + '\n';
  WriteTestFile(file, all);
  ASSERT_EQ(ReadTestFile(file), all);
}

TEST(ProgramArguments, AreUtf8AndWildcardsAreLeftAlone) {
  const TemporaryFolder folder;
  const fs::path file = folder / "arguments";
  ASSERT_TRUE(SetEnvironmentVariableW(kArgumentsFile, file.c_str()));
  std::wstring line = L"\"" + ExecutablePath("").native() +
                      L"\" --gtest_filter=ProgramArgumentsChild.* --gtest_also_run_disabled_tests "
                      L"\"caf\u00E9 \u65E5\u672C\" \U0001D11E * \"\" a\\\\b \"say \\\"x\\\"\" \xD834";
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION process;
  ASSERT_TRUE(
      CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process));
  const Handle child(process.hProcess);
  const Handle thread(process.hThread);
  ASSERT_EQ(WaitForSingleObject(child.Get(), 60'000), WAIT_OBJECT_0);
  EXPECT_EQ(ReadTestFile(file),
            "--gtest_filter=ProgramArgumentsChild.*\n--gtest_also_run_disabled_tests\ncaf\xC3\xA9 "
            "\xE6\x97\xA5\xE6\x9C\xAC\n\xF0\x9D\x84\x9E\n*\n\na\\\\b\nsay \"x\"\n\xEF\xBF\xBD\n");
}

TEST(ExecutablePath, IsWhereThisProgramIs) {
  const fs::path path = ExecutablePath("");
  EXPECT_TRUE(MakeSystemFiles()->FileExists(path));
  EXPECT_EQ(path.extension(), ".exe");
  EXPECT_FALSE(path.native().starts_with(LR"(\\?\)"));
}

// ---- The console

TEST(StandardStreams, LeaveTheConsoleAsItWas) {
  const bool made = AllocConsole() != 0;
  constexpr UINT kItsOwn = 437;
  const UINT before = GetConsoleOutputCP();
  if (before == 0 || !SetConsoleOutputCP(kItsOwn)) GTEST_SKIP() << "there is no console";
  {
    const StandardStreams streams;
    EXPECT_EQ(GetConsoleOutputCP(), static_cast<UINT>(CP_UTF8));
  }
  EXPECT_EQ(GetConsoleOutputCP(), kItsOwn);
  SetConsoleOutputCP(before);
  if (made) FreeConsole();
}

TEST(StandardStreams, TakeBytesAsTheyAre) {
  const TemporaryFolder folder;
  constexpr int kOutput = 1;
  std::cout.flush();
  std::fflush(stdout);
  const int before = _dup(kOutput);
  const int file = _wopen((folder / "out").c_str(), _O_CREAT | _O_WRONLY | _O_TEXT, _S_IWRITE);
  ASSERT_EQ(_dup2(file, kOutput), 0);
  {
    const StandardStreams streams;
    std::cout << "a\nb\r\n\x1A";
    std::cout.flush();
    std::fflush(stdout);
  }
  _dup2(before, kOutput);
  _close(file);
  _close(before);
  EXPECT_EQ(ReadTestFile(folder / "out"), "a\nb\r\n\x1A");
}

}  // namespace
}  // namespace korv
