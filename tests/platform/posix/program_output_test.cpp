#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "base/yielder.h"
#include "platform/files.h"

namespace korv {
namespace {

class ProgramOutput : public testing::Test {
 protected:
  Expected<std::string, FileError> Read(const std::string& program,
                                        const std::vector<std::filesystem::path>& arguments) {
    auto output = files->OpenOutputOf(program, arguments, yielder);
    if (!output) return output.Error();
    std::string text;
    std::vector<char> block(1000);
    for (;;) {
      const auto got = (*output)->Read(block);
      if (!got) return got.Error();
      if (*got == 0) return text;
      text.append(block.data(), *got);
    }
  }

  std::unique_ptr<FileSystem> files = MakeSystemFiles();
  NoYielder yielder;
};

TEST_F(ProgramOutput, IsWhatTheProgramPrints) {
  const auto text = Read("printf", {"%s|%s", "one two", "-x"});
  ASSERT_TRUE(text);
  EXPECT_EQ(*text, "one two|-x");
  const auto much = Read("sh", {"-c", "head -c 300000 /dev/zero"});
  ASSERT_TRUE(much);
  EXPECT_EQ(much->size(), 300000u);
}

TEST_F(ProgramOutput, HasNothingToRead) {
  const auto text = Read("cat", {});
  ASSERT_TRUE(text);
  EXPECT_EQ(*text, "");
}

TEST_F(ProgramOutput, FailsWithTheProgram) {
  EXPECT_FALSE(Read("sh", {"-c", "echo words; exit 3"}));
  EXPECT_FALSE(Read("sh", {"-c", "echo words; kill -9 $$"}));
}

TEST_F(ProgramOutput, TellsWhereThereIsNoSuchProgram) {
  const auto text = Read("no-such-program-of-korv", {});
  ASSERT_FALSE(text);
  EXPECT_EQ(text.Error().Fault, FileFault::NotFound);
}

TEST_F(ProgramOutput, EndsWhereAStopIsRequested) {
  const auto begin = std::chrono::steady_clock::now();
  auto output = files->OpenOutputOf("sleep", {"60"}, yielder);
  ASSERT_TRUE(output);
  yielder.RequestStop();
  std::vector<char> block(10);
  const auto got = (*output)->Read(block);
  ASSERT_TRUE(got);
  EXPECT_EQ(*got, 0u);
  (*output).reset();  // Ends the program, and waits for that.
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

}  // namespace
}  // namespace korv
