#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "cli/count_program.h"
#include "platform/console/console_yielder.h"
#include "tests/app/run_world.h"
#include "tests/fakes/fake_clock.h"
#include "tests/fakes/fake_files.h"

// Counts of a text, whole and of its parts, make the reports that the text makes.

namespace korv {
namespace {

using Arguments = std::vector<std::string>;

std::string RandomText() {
  static const std::vector<std::string> kWords = {"the",  "cat", "Cat", "big", "dog",    "caf\u00e9",
                                                  "cafe", "of",  "a",   "x-y", "catcat", "12"};
  std::string text;
  for (int words = *rc::gen::inRange(0, 120); words > 0; --words)
    text += *rc::gen::elementOf(kWords) +
            *rc::gen::element<std::string>(" ", " ", " ", " ", " ", ". ", "\t", "\n");
  return text.empty() ? "nothing here" : text + "end";
}

/// korv-count on a disk in memory.
struct Disk {
  std::string Count(Arguments arguments) {
    arguments.emplace_back("--quiet");
    std::ostringstream out;
    ConsoleYielder yielder;
    FakeStream stream("");
    const int status = KorvCount(arguments, {.Files = Files,
                                             .Yielder = yielder,
                                             .Clock = Clock,
                                             .StandardInput = stream,
                                             .Out = out,
                                             .Err = Err,
                                             .ProgramFolder = "/program"});
    RC_LOG() << Err.str();
    RC_ASSERT(status == 0);
    return out.str();
  }

  FakeFiles Files;
  FakeClock Clock;
  std::ostringstream Err;
};

Arguments operator+(Arguments a, const Arguments& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

/// How a text is counted. Words and their rules are settled then.
Arguments RandomRules() {
  Arguments rules = {"--words", *rc::gen::element<std::string>("2", "2-3", "2-5", "3-4")};
  if (*rc::gen::arbitrary<bool>()) rules.emplace_back("--case-significant");
  if (*rc::gen::arbitrary<bool>()) rules = rules + Arguments{"--ignore-words", "the caf~"};
  // Words that would be removed from a text are not in counts of it.
  rules = rules +
          Arguments{"--ignore-mode", *rc::gen::element<std::string>("allow", "exclude-all", "exclude-with")};
  if (*rc::gen::arbitrary<bool>())
    rules = rules + Arguments{"--count-only", *rc::gen::element<std::string>("cat", "big dog", "c~", "of")};
  return rules;
}

/// How what was counted is listed.
Arguments RandomListing() {
  Arguments listing = {"--min-frequency", *rc::gen::element<std::string>("1", "2", "3"), "--order",
                       *rc::gen::element<std::string>("frequency", "alphabetical")};
  if (*rc::gen::arbitrary<bool>()) listing.emplace_back("--keep-redundant");
  if (*rc::gen::arbitrary<bool>()) listing = listing + Arguments{"--filter", "cat"};
  if (*rc::gen::arbitrary<bool>())
    return listing + Arguments{"--columns", "rank,phrase,frequency,words,characters,c_value"};
  if (*rc::gen::arbitrary<bool>()) listing.emplace_back("--relative");
  return listing + Arguments{"--format", std::to_string(*rc::gen::inRange(0, 10)), "--layout",
                             *rc::gen::element<std::string>("columns", "tabs")};
}

/// The line that names the source differs.
std::string WithoutSource(std::string report) {
  if (report.starts_with("File: ")) report.erase(0, report.find('\n'));
  return report;
}

RC_GTEST_PROP(FromCountsProperties, CountsOfATextMakeItsReports, ()) {
  const Arguments rules = RandomRules();
  const Arguments listing = RandomListing();
  const std::string text = RandomText();
  for (const std::string& argument : rules + listing) RC_LOG() << argument << ' ';
  RC_LOG() << '\n' << text << '\n';

  Disk disk;
  disk.Files.Add("/a.txt", text);
  const Arguments all = {"--min-frequency", "1", "--keep-redundant", "--output-format", "tsv"};
  disk.Files.Add("/all.tsv", disk.Count(Arguments{"/a.txt"} + rules + all));
  const std::string expected = WithoutSource(disk.Count(Arguments{"/a.txt"} + rules + listing));
  RC_TAG(expected.find("cat") == expected.npos ? "without a phrase" : "with phrases");
  RC_ASSERT(WithoutSource(disk.Count(Arguments{"--from-counts", "/all.tsv"} + rules + listing)) == expected);

  // Counts of parts that end where phrases end, as they do at tabs, add up to the same.
  std::string parts;
  size_t begin = 0;
  int files = 0;
  while (begin < text.size()) {
    const size_t end =
        std::min(text.find('\t', begin + static_cast<size_t>(*rc::gen::inRange(0, 200))), text.size());
    const std::string path = "/p" + std::to_string(files++) + ".txt";
    disk.Files.Add(path, text.substr(begin, end - begin) + "     ");
    std::string counts = disk.Count(Arguments{path} + rules + all);
    parts += parts.empty() ? counts : counts.substr(counts.find('\n') + 1);
    begin = end;
  }
  disk.Files.Add("/parts.tsv", parts);
  RC_ASSERT(WithoutSource(disk.Count(Arguments{"--from-counts", "/parts.tsv"} + rules + listing)) ==
            expected);
}

}  // namespace
}  // namespace korv
