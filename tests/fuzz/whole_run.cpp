// A whole run of korv-count on a disk in memory: arguments, one a line, then an empty line and the bytes that
// every source has. It ends with a status that it may have, changes nothing that it was not told to replace,
// leaves nothing behind, and gives the same bytes a second time, on three threads and from files that are
// read in small pieces.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "base/workers.h"
#include "cli/count_program.h"
#include "cli/options.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_files.h"
#include "tests/sources/bitten_file.h"

namespace {

using namespace korv;

void Require(bool holds) {
  if (!holds) std::abort();
}

unsigned threads = 1;         // Of the run that goes on.
uint64_t tasksOnThreads = 0;  // How often RunTasks() was made to use threads.

}  // namespace

// The linker has calls of the two functions go to these: see CMakeLists.txt.
unsigned ThreadsOfRun() __asm__("__wrap__ZNSt6thread20hardware_concurrencyEv");
bool RunTasksOnThreads(size_t tasks, bool onCallingThread, korv::Yielder& yielder,
                       const std::function<void(size_t, size_t)>& work) __asm__("__wrap_" KORV_RUN_TASKS);
bool RealRunTasks(size_t tasks, bool onCallingThread, korv::Yielder& yielder,
                  const std::function<void(size_t, size_t)>& work) __asm__("__real_" KORV_RUN_TASKS);

unsigned ThreadsOfRun() {
  return threads;
}

// Small texts get threads, too.
bool RunTasksOnThreads(size_t tasks, bool onCallingThread, korv::Yielder& yielder,
                       const std::function<void(size_t, size_t)>& work) {
  if (threads > 1) ++tasksOnThreads;
  return RealRunTasks(tasks, onCallingThread && threads == 1, yielder, work);
}

namespace {

struct Outcome {
  int Status = 0;
  std::string Out;
  std::string Err;
  std::map<std::string, std::string> Files;
  bool operator==(const Outcome&) const = default;
};

constexpr const char* kInputs[] = {"/in.txt",  "/in.html",  "/in.xml",   "/in.php",    "/in.c",
                                   "/in.docx", "/list.txt", "/set.korv", "/counts.tsv"};
constexpr const char* kOutputs[] = {"/out.txt",  "/out.csv",  "/out.json",
                                    "/out.html", "/out.korv", "/datapackage.json"};

Outcome Run(const std::vector<std::string>& arguments, const std::string& bytes, unsigned onThreads,
            size_t piece) {
  threads = onThreads;
  FakeFiles files;
  for (const char* path : kInputs) files.Add(path, bytes);
  const size_t half = bytes.size() / 2;
  files.Add("/t/1.txt", bytes.substr(0, half));
  files.Add("/t/2.txt", bytes.substr(half));
  files.Add("/t/deep/3.html", bytes);
  files.Add("/program/korv.dat", "62\t#10: Phrase, number of files, frequency\n");
  files.Add("/program/cwds_en.txt", "\xEF\xBB\xBFthe\naren't\n");
  files.ReadInPiecesOf(piece);
  BittenFile input(bytes, piece);
  ConsoleYielder yielder;
  FakeClock clock;
  std::ostringstream out;
  std::ostringstream err;
  Outcome outcome;
  outcome.Status = KorvCount(arguments, {.Files = files,
                                         .Yielder = yielder,
                                         .Clock = clock,
                                         .StandardInput = input,
                                         .Out = out,
                                         .Err = err,
                                         .ProgramFolder = "/program"});
  outcome.Out = out.str();
  outcome.Err = err.str();
  Require(files.TemporaryIsClean());
  for (const char* path : kInputs) outcome.Files[path] = files.Content(path).value_or("gone");
  for (const char* path : kOutputs)
    if (const auto content = files.Content(path)) outcome.Files[path] = *content;
  return outcome;
}

/// A replacement that the linker no longer makes would go unnoticed.
bool UsesThreads() {
  Run({"/in.txt", "--words", "2-3"}, "The big cat sat. The big cat ran.", 3, SIZE_MAX);
  return tasksOnThreads > 0;
}

void RequireProper(const Outcome& outcome, const std::vector<std::string>& arguments,
                   const std::string& bytes) {
  const bool isEmpty = outcome.Status == kExitEmpty;
  Require(outcome.Status == kExitReport || outcome.Status == kExitRefused || outcome.Status == kExitUsage ||
          isEmpty);
  if (outcome.Status == kExitRefused || outcome.Status == kExitUsage) Require(!outcome.Err.empty());
  const auto has = [&](const char* option) {
    return std::find(arguments.begin(), arguments.end(), option) != arguments.end();
  };
  if (isEmpty) Require(has("--fail-if-empty"));
  if (has("--force")) return;
  for (const char* path : kInputs) Require(outcome.Files.at(path) == bytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMostBytes = 4096;
  constexpr size_t kMostArguments = 40;
  static const bool usesThreads = UsesThreads();
  Require(usesThreads);
  if (size > kMostBytes) return 0;
  std::string_view rest(reinterpret_cast<const char*>(data), size);
  std::vector<std::string> arguments;
  while (!rest.empty()) {
    const size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view argument = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (argument.empty()) break;
    arguments.emplace_back(argument);
  }
  if (arguments.size() > kMostArguments) return 0;
  const std::string bytes(rest);
  const Outcome first = Run(arguments, bytes, 1, SIZE_MAX);
  RequireProper(first, arguments, bytes);
  Require(Run(arguments, bytes, 3, 7) == first);
  return 0;
}
