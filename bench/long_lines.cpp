// One line of a gigabyte of this and that, read as plain text and as HTML: how long it takes, how much memory
// the process takes with a sink that keeps nothing, how long the reader goes without a look at the stop flag,
// and how soon it is back after a stop.
//     long_lines [MEGABYTES [WHAT]]
// WHAT is the beginning of a row's name ("prose").

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <string_view>
#include <thread>

#include "sources/read/corpus_reader.h"
#include "sources/scan/line_scanner.h"

namespace {

using namespace korv;
using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration duration) {
  return std::chrono::duration<double, std::milli>(duration).count();
}

/// One line: a unit of text over and over, made while it is read.
class Line final : public InputFile {
 public:
  Line(std::string_view unit, uint64_t size) : size_(size) {
    while (block_.size() < (size_t{1} << 20)) block_ += unit;
  }

  Expected<size_t, FileError> Read(std::span<char> buffer) override {
    const size_t from = at_ % block_.size();
    const auto count =
        static_cast<size_t>(std::min<uint64_t>({buffer.size(), block_.size() - from, size_ - at_}));
    std::memcpy(buffer.data(), block_.data() + from, count);
    at_ += count;
    return count;
  }
  uint64_t Size() const override { return size_; }

 private:
  std::string block_;
  uint64_t size_;
  uint64_t at_ = 0;
};

struct CountingSink final : WordSink {
  void TakeWord(std::string_view word) override { Bytes += word.size(); }
  void ResetPhrases() override {}
  size_t Bytes = 0;
};

/// Kilobytes that the process has taken at most since the last call of ForgetPeak(); 0 where nothing tells.
long Peak() {
  std::ifstream status("/proc/self/status");
  for (std::string name; status >> name;)
    if (name == "VmHWM:") {
      long kilobytes = 0;
      status >> kilobytes;
      return kilobytes;
    }
  return 0;
}

void ForgetPeak() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

WordRules Rules() {
  WordRules rules;
  SetAllowedExtraChars(rules);
  SetAllowedExtraChars2(rules);
  return rules;
}

struct Whole {
  double Seconds;
  double LongestStep;  ///< In milliseconds, between two looks at the stop flag.
  double Megabytes;    ///< Of the process.
};

Whole ReadWhole(std::string_view unit, std::string_view extension, uint64_t size) {
  Line line(unit, size);
  ForgetPeak();
  CountingSink sink;
  TextReader reader("", &line, EncodingPlan(nullptr), LongLines::Anywhere);
  LineScanner<WordSink> scanner(Rules(), MarkersOfExtension(extension), sink);
  scanner.BeginSource();
  const auto begin = Clock::now();
  auto last = begin;
  Clock::duration longest{};
  while (reader.NextLine()) {
    scanner.ScanLine(reader.Line(), reader.StartsLine(), reader.EndsLine());
    const auto now = Clock::now();
    longest = std::max(longest, now - last);
    last = now;
  }
  return {Milliseconds(last - begin) / 1000, Milliseconds(longest), static_cast<double>(Peak()) / 1024};
}

/// Milliseconds from the request to stop to the return of the reader, the longest of some.
double StopAfterReading(std::string_view unit, std::string_view extension, uint64_t size) {
  double longest = 0;
  for (const int wait : {3, 20, 47, 90, 150}) {
    const WordRules rules = Rules();
    const RunOptions options;
    const WordFilters filters;
    CorpusBuilder corpus(rules, options, filters);
    NoYielder yielder;
    Gauge<uint64_t> bytes;
    Gauge<uint64_t> words;
    Clock::time_point asked;
    std::thread stopper([&] {
      std::this_thread::sleep_for(std::chrono::milliseconds(wait));
      asked = Clock::now();
      yielder.RequestStop();
    });
    DocumentText text;
    text.Rest = std::make_unique<Line>(unit, size);
    text.Markers = MarkersOfExtension(extension);
    CorpusReader(rules, corpus, yielder, {bytes, words}).Read({}, std::move(text), EncodingPlan(nullptr));
    const auto back = Clock::now();
    stopper.join();
    longest = std::max(longest, Milliseconds(back - asked));
  }
  return longest;
}

}  // namespace

int main(int argc, char** argv) {
  const uint64_t size = (argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1024) << 20;
  struct Row {
    const char* Name;
    const char* Unit;
  };
  constexpr Row kRows[] = {
      {"prose", "it was a bright cold day in April, and the clocks were striking. "},
      {"prose in tags",
       "<p class=\"a\">it was a <b>bright</b> cold day &amp; the clocks were striking.</p> "},
      {"tags without blanks", "<p>it<b>was</b>a<i>bright</i>&eacute;<br/>day</p>"},
      {"a table without blanks", "one;two,three;4,"},
      {"letters", "abcdefghijklmnopqrstuvwxyz"},
      {"ideographs", "\u6F22\u5B57"},
      {"accented letters", "\u00E9"},
      {"marks upon a letter", "\u0301"},
      {"hyphens", "-"},
      {"entities that do not end", "&am"},
      {"a comment that does not end", "<!--word-"},
      {"ill-formed bytes", "\x80"},
  };
  const std::string_view only = argc > 2 ? argv[2] : "";
  std::printf("%-28s %-5s %8s %12s %10s\n", "one line of", "as", "seconds", "longest step", "memory");
  // All of these first: the corpora of the others leave memory behind.
  for (const Row& row : kRows)
    for (const char* extension : {"txt", "html"}) {
      if (!std::string_view(row.Name).starts_with(only)) continue;
      const Whole whole = ReadWhole(row.Unit, extension, size);
      std::printf("%-28s %-5s %8.2f %9.1f ms %7.1f MB\n", row.Name, extension, whole.Seconds,
                  whole.LongestStep, whole.Megabytes);
      std::fflush(stdout);
    }
  std::printf("\n%-28s %-5s %s\n", "one line of", "as", "back after a stop in");
  for (const Row& row : kRows)
    for (const char* extension : {"txt", "html"}) {
      if (!std::string_view(row.Name).starts_with(only)) continue;
      std::printf("%-28s %-5s %9.1f ms\n", row.Name, extension, StopAfterReading(row.Unit, extension, size));
      std::fflush(stdout);
    }
  return 0;
}
