#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "cli/count_program.h"
#include "tests/app/run_world.h"
#include "tests/fakes/native_paths.h"

namespace korv {
namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

struct RunCase {
  std::string Name;
  std::vector<std::string> Arguments;
};

std::vector<RunCase> Cases() {
  std::vector<RunCase> cases;
  std::ifstream file(fs::path(KORV_TEST_DATA) / "runs" / "cases.txt");
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.starts_with('#')) continue;
    const size_t colon = line.find(':');
    RunCase golden{line.substr(0, colon), {}};
    std::istringstream words(line.substr(colon + 1));
    for (std::string word; words >> std::quoted(word);) golden.Arguments.push_back(word);
    cases.push_back(std::move(golden));
  }
  return cases;
}

/// Whole runs over the texts of tests/data against reports that were read by eye. With the variable
/// KORV_UPDATE_GOLDEN the reports are written anew, to be read again.
TEST(WholeRuns, AreAsTheyWereRead) {
  const bool update = std::getenv("KORV_UPDATE_GOLDEN") != nullptr;
  const auto files = MakeSystemFiles();
  fs::current_path(KORV_TEST_DATA);
  const std::vector<RunCase> cases = Cases();
  ASSERT_FALSE(cases.empty());
  for (const RunCase& c : cases) {
    ConsoleYielder yielder;
    const FakeClock clock;
    FakeStream noInput("");
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(KorvCount(c.Arguments, {.Files = *files,
                                      .Yielder = yielder,
                                      .Clock = clock,
                                      .StandardInput = noInput,
                                      .Out = out,
                                      .Err = err,
                                      .ErrIsTerminal = false,
                                      .ProgramFolder = KORV_COMMON_WORDS}),
              0)
        << err.str();
    const fs::path golden = fs::path(KORV_TEST_DATA) / "runs" / (c.Name + ".txt");
    if (update) std::ofstream(golden, std::ios::binary) << out.str();
    EXPECT_EQ(out.str(), WithNativePaths(Content(golden))) << c.Name;
  }
}

}  // namespace
}  // namespace korv
