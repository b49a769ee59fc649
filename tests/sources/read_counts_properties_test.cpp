#include <gtest/gtest.h>

#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "engine/counting/count_phrases.h"
#include "sources/read/read_counts.h"
#include "tests/fakes/fake_files.h"
#include "tests/reference/naive_counts.h"

// Files of counts against the naive model, whole ones and damaged ones.

namespace korv {
namespace {

rc::Gen<std::string> OneOf(std::vector<std::string> texts) {
  return rc::gen::elementOf(std::move(texts));
}

std::string RandomPhrase() {
  static const std::string kLong(40, 'l');
  std::string phrase;
  const int words = *rc::gen::inRange(1, 6);
  for (int k = 0; k < words; ++k)
    phrase += (k == 0 ? "" : " ") + *OneOf({"a", "b", "ab", "cat", "the", "of", "x-y", kLong});
  return phrase;
}

std::string RandomLine(bool damaged) {
  if (!damaged) return RandomPhrase() + "\t" + *OneOf({"1", "2", "3", "17", "99999", "2000000000"});
  return *OneOf({RandomPhrase() + "\t1", "# a comment", "#", "phrase\tfrequency", "frequency\tphrase",
                 "phrase\tx\tfrequency", "", "\t", "a  b\t1", "a b\t0", "a b\t+1", "a b\t1\t", "a b",
                 "a\x02 b\t4", "a b\t2147483648", "a b\t0000000000000002", "a\tb\t3", "# \t"});
}

std::string RandomFile() {
  const bool damaged = *rc::gen::arbitrary<bool>();
  std::string file = *OneOf({"", "", "\xEF\xBB\xBF", "phrase\tfrequency\n", "# note\n"});
  const std::string end = *OneOf({"\n", "\r\n"});
  for (int lines = *rc::gen::inRange(0, 60); lines > 0; --lines)
    file += RandomLine(damaged && *rc::gen::inRange(0, 4) == 0) + end;
  if (*rc::gen::arbitrary<bool>() && file.ends_with("\n")) file.pop_back();
  return file;
}

RC_GTEST_PROP(ReadCountsProperties, SumsAreThoseOfTheModel, ()) {
  const std::string bytes = RandomFile();
  RC_LOG() << bytes << '\n';
  RunOptions options;
  options.MinWords = *rc::gen::inRange(2, 4);
  options.MaxWords = *rc::gen::inRange(options.MinWords, 6);
  const reference::NaiveCounts model = reference::CountsOf(bytes, options.MinWords, options.MaxWords);

  FakeFiles files;
  files.Add("/c", bytes);
  files.ReadInPiecesOf(*rc::gen::element<size_t>(1, 3, 1000));
  auto file = files.OpenForReading("/c");
  const WordFilters lists;
  PhraseTable table;
  PhraseSums sums(options, lists, table);
  NoYielder yielder;
  CountsTally tally;
  const auto error = ReadCounts(**file, sums, yielder, tally, [](uint64_t) {});
  RC_TAG(error ? "refused" : "read");
  RC_ASSERT((error ? error->Line : 0) == model.RefusedLine);
  if (error) return;
  RC_ASSERT(tally.Counts == model.Lines);
  RC_ASSERT(tally.OtherLengths == model.OtherLengths);
  RC_ASSERT(sums.Finish(yielder));
  RC_ASSERT(SortPhrases(table, yielder));
  std::map<std::string, uint64_t> found;
  std::string before;
  uint64_t occurrences = 0;
  for (const PhraseIndex i : table.All()) {
    RC_ASSERT(i == PhraseIndex{1} || before < table.Key(i));
    before = table.Key(i);
    found[table.Text(i)] = table.Count(i);
    occurrences += table.Count(i);
  }
  RC_ASSERT(found == model.Sums);
  RC_ASSERT(table.PhraseCount() == model.Sums.size());
  RC_ASSERT(table.Occurrences() == occurrences);
  RC_ASSERT(table.LongPhrases() == model.LongOccurrences);
}

}  // namespace
}  // namespace korv
