// How soon the engine stops: every stage of a run is stopped at many moments, and the time from the request
// to the return of the stage is measured.
//     stopping TEXT MILLIONS
// TEXT is "prose" (made-up words, about as frequent as real ones), "one" (one word all over), "three" (three
// words in turn) or "distinct" (no word twice); MILLIONS are its words.

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#include "base/yielder.h"
#include "bench/made_text.h"
#include "engine/corpus/corpus_builder.h"
#include "engine/counting/count_phrases.h"
#include "engine/counting/phrase_table.h"
#include "engine/patterns/word_filters.h"

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

double MillisecondsSince(Clock::time_point begin) {
  return Milliseconds(Clock::now() - begin).count();
}

double ProcessorMilliseconds() {
  return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Asks for a stop some time after it was made, unless it is gone by then.
class StopTimer {
 public:
  StopTimer(korv::Yielder& yielder, Milliseconds after)
      : thread_([this, &yielder, after] {
          std::unique_lock lock(mutex_);
          if (gone_.wait_for(lock, after, [this] { return done_; })) return;
          processor_ = ProcessorMilliseconds();
          requested_ = Clock::now();
          yielder.RequestStop();
        }) {}
  ~StopTimer() { Requested(); }

  /// The processor time at that moment.
  double Processor() const { return processor_; }
  /// When the stop was asked for; nothing when it was not.
  std::optional<Clock::time_point> Requested() {
    {
      const std::lock_guard lock(mutex_);
      done_ = true;
    }
    gone_.notify_one();
    if (thread_.joinable()) thread_.join();
    return requested_;
  }

 private:
  std::mutex mutex_;
  std::condition_variable gone_;
  bool done_ = false;
  double processor_ = 0;
  std::optional<Clock::time_point> requested_;
  std::thread thread_;
};

/// What stopping a stage at many moments has shown.
struct Latency {
  double Greatest = 0;   ///< Milliseconds from the request to the return.
  double Processor = 0;  ///< Milliseconds of processor time, of all threads, in that time.
  double After = 0;      ///< Milliseconds into the stage at which that stop was asked for.
  int Stops = 0;
};

bool RunStopped(const std::function<bool()>& stage, korv::Yielder& yielder, double after, Latency& latency) {
  StopTimer timer(yielder, Milliseconds(after));
  const bool finished = stage();
  const Clock::time_point returned = Clock::now();
  const double processor = ProcessorMilliseconds();
  const auto requested = timer.Requested();
  yielder.ClearStop();
  if (requested && returned > *requested) {
    ++latency.Stops;
    const double took = Milliseconds(returned - *requested).count();
    if (took > latency.Greatest) latency = {took, processor - timer.Processor(), after, latency.Stops};
  }
  return finished;
}

/// Stops a stage that can be taken up again ever later until it is finished, then at even moments of its
/// time.
void Measure(const char* name, korv::Yielder& yielder, const std::function<bool()>& stage) {
  Latency latency;
  double after = 1;
  const double growth = 1.3;
  Clock::time_point begin = Clock::now();
  while (!RunStopped(stage, yielder, after, latency)) {
    after *= growth;
    begin = Clock::now();
  }
  const double whole = MillisecondsSince(begin);
  constexpr int kEvenMoments = 24;
  for (int k = 0; k < kEvenMoments; ++k) RunStopped(stage, yielder, whole * k / kEvenMoments, latency);
  yielder.ClearStop();
  stage();
  std::printf(
      "%-10s %9.0f ms, %3d stops, slowest seen after %6.0f ms (%.0f ms of processors, asked for at %.0f "
      "ms)\n",
      name, whole, latency.Stops, latency.Greatest, latency.Processor, latency.After);
  std::fflush(stdout);
}

void Once(const char* name, const std::function<void()>& step) {
  const Clock::time_point begin = Clock::now();
  step();
  std::printf("%-10s %9.0f ms in one step\n", name, MillisecondsSince(begin));
  std::fflush(stdout);
}

/// Hands words over and measures the slowest single one.
class WordFeed {
 public:
  explicit WordFeed(korv::CorpusBuilder& builder) : builder_(builder) { builder.BeginSource({}); }
  void Take(std::string_view word) {
    const Clock::time_point begin = Clock::now();
    builder_.TakeWord(word);
    const double took = MillisecondsSince(begin);
    if (took > slowest_) slowest_ = took;
  }
  void EndPhrase() { builder_.ResetPhrases(); }
  double Slowest() const { return slowest_; }

 private:
  korv::CorpusBuilder& builder_;
  double slowest_ = 0;
};

void FeedProse(WordFeed& feed, size_t words) {
  constexpr size_t kPart = 4'000'000;
  for (uint64_t seed = 1; words > 0; ++seed) {
    const korv::bench::MadeText text(std::min(words, kPart), seed);
    auto end = text.SentenceEnds().begin();
    size_t taken = 0;
    for (const std::string& word : text.Words()) {
      feed.Take(word);
      if (end != text.SentenceEnds().end() && *end == ++taken) {
        feed.EndPhrase();
        ++end;
      }
    }
    words -= text.Words().size();
  }
}

void FeedText(const std::string& kind, WordFeed& feed, size_t words) {
  constexpr std::string_view kThree[] = {"market", "ferry", "timetable"};
  if (kind == "prose") return FeedProse(feed, words);
  for (size_t i = 0; i < words; ++i) {
    if (kind == "distinct") {
      std::string word;
      for (size_t rest = i + 1; rest > 0; rest /= 26) word += static_cast<char>('a' + rest % 26);
      feed.Take(word + "xyz");
    } else {
      feed.Take(kThree[kind == "one" ? 0 : i % 3]);
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "stopping prose|one|three|distinct MILLIONS\n");
    return 2;
  }
  const std::string kind = argv[1];
  const size_t words = static_cast<size_t>(std::strtod(argv[2], nullptr) * 1e6);
  const korv::WordFilters filters;
  korv::RunOptions options;
  options.MinWords = 2;
  korv::NoYielder yielder;
  korv::PhraseTable table;
  {
    korv::CorpusBuilder builder(korv::WordRules{}, options, filters);
    WordFeed feed(builder);
    const Clock::time_point begin = Clock::now();
    FeedText(kind, feed, words);
    std::printf("%-10s %9.0f ms, slowest word %.0f ms\n", "reading", MillisecondsSince(begin),
                feed.Slowest());
    Once("handing", [&] { korv::TakeText(std::move(builder), table); });
  }
  Measure("counting", yielder, [&] { return korv::CountPhrases(table, yielder); });
  Measure("sorting", yielder, [&] { return korv::SortPhrases(table, yielder); });
  Once("listing", [&] { korv::ListByFrequency(table, options.MinFrequency); });
  Measure("exclusion", yielder, [&] { return korv::ExcludeRedundantSubphrases(table, yielder); });
  Measure("chain", yielder,
          [&] { return korv::SetUpFrequencyChain(table, korv::ChainOrder::ByCount, yielder); });
  std::printf("%u entries\n", table.EntryCount());
  Once("freeing", [&] { table = korv::PhraseTable(); });
}
