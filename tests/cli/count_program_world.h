#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "app/settings/saved_state.h"
#include "cli/count_program.h"
#include "cli/options.h"
#include "platform/console/console_yielder.h"
#include "tests/app/run_world.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_files.h"

namespace korv {

inline constexpr const char* kText = "The big cat sat. The big cat ran.\n";
inline constexpr const char* kTextLine = "8 words read, none dropped; ASCII\n";

/// korv-count in this process, on a disk in memory.
class CountProgramTest : public testing::Test {
 protected:
  CountProgramTest() {
    files.Add("/a.txt", kText);
    files.Add("/program/korv.dat", "62\t#10: Phrase, number of files, frequency\n");
    files.Add("/program/cwds_en.txt", "\xEF\xBB\xBFthe\naren't\n");
  }

  int Count(std::vector<std::string> arguments) {
    out.str("");
    err.str("");
    yielder = std::make_unique<ConsoleYielder>();
    FakeStream stream(input);
    stream.OnRead = onRead;
    stream.Fail = unreadable;
    return KorvCount(arguments, {.Files = files,
                                 .Yielder = *yielder,
                                 .Clock = clock,
                                 .StandardInput = stream,
                                 .Out = out,
                                 .Err = err,
                                 .ErrIsTerminal = terminal,
                                 .ProgramFolder = "/program",
                                 .Encoding = encoding,
                                 .InputPath = inputPath,
                                 .OutColumns = columns,
                                 .ExpandsPatterns = expandsPatterns});
  }

  /// The settings that the arguments lead to.
  Settings Resulting(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--save-settings", "/result.korv"});
    Count(std::move(arguments));
    Settings settings;
    EXPECT_TRUE(ReadStateBytes(files.Content("/result.korv").value_or(""), settings).Complete());
    return settings;
  }

  /// Options that make no sense, and what is said of them.
  struct WrongUsage {
    std::vector<std::string> Arguments;
    const char* Text;
  };
  void ExpectWrongUsage(const std::string& path, std::initializer_list<WrongUsage> cases) {
    for (const WrongUsage& c : cases) {
      std::vector<std::string> arguments{path};
      arguments.insert(arguments.end(), c.Arguments.begin(), c.Arguments.end());
      EXPECT_EQ(Count(arguments), kExitUsage) << c.Text;
      EXPECT_THAT(err.str(), testing::HasSubstr(c.Text));
      EXPECT_THAT(out.str(), testing::IsEmpty()) << c.Text;
    }
  }

  FakeFiles files;
  std::unique_ptr<ConsoleYielder> yielder;  ///< Of the last run.
  FakeClock clock;
  std::ostringstream out;
  std::ostringstream err;
  std::string input;
  std::function<void()> onRead;
  bool unreadable = false;  ///< Standard input.
  bool terminal = false;
  CodePage* encoding = nullptr;
  std::filesystem::path inputPath;
  size_t columns = 0;  ///< Of the terminal that standard output is.
  bool expandsPatterns = false;
};

}  // namespace korv
