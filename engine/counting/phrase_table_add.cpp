#include <algorithm>
#include <limits>

#include "engine/counting/phrase_table.h"
#include "engine/counting/phrase_table_data.h"
#include "engine/text/unicode.h"

namespace korv {

void PhraseTable::Clear(bool forWordList) {
  *this = PhraseTable();
  data_->ForWordList = forWordList;
  data_->Corpus.Tokens.push_back(kNoWord);
}

void PhraseTable::BeginFile(const std::filesystem::path& path) {
  data_->CurrentFile = path;
  data_->CurrentFileNumbered = false;
}

void PhraseTable::AddWordToList(std::string_view phrase) {
  PhraseTableData& data = *data_;
  if (!data.ForWordList && CharacterCount(phrase) > static_cast<size_t>(data.Corpus.Options.MostCharacters)) {
    ++data.LongPhrases;
    return;
  }
  if (!data.ForWordList && !data.CurrentFileNumbered && !data.CurrentFile.empty()) {
    if (data.FilePaths.empty() || data.FilePaths.back() != data.CurrentFile)
      data.FilePaths.push_back(data.CurrentFile);
    data.CurrentFileNumbered = true;
  }
  ++data.Occurrences;
  const auto [found, isNew] = data.IndexOfText.try_emplace(
      std::string(phrase), PhraseIndex{static_cast<uint32_t>(data.Entries.size() + 1)});
  if (isNew) {
    PhraseEntry entry{Place{static_cast<uint32_t>(data.Corpus.Tokens.size())}, 0,
                      static_cast<uint32_t>(data.CountsOfEntries.size()), 0, true};
    for (size_t begin = 0; begin <= phrase.size();) {
      const size_t end = std::min(phrase.find(' ', begin), phrase.size());
      data.Corpus.Tokens.push_back(data.Corpus.Words.Number(phrase.substr(begin, end - begin)));
      ++entry.Words;
      begin = end + 1;
    }
    data.Entries.push_back(entry);
    data.PhraseCount.fetch_add(1, std::memory_order_relaxed);
    data.ByText.clear();
    if (!data.ForWordList) data.CountsOfEntries.emplace_back();
  }
  PhraseEntry& entry = data.Entries[ValueOf(found->second) - 1];
  if (entry.Count < static_cast<uint32_t>(std::numeric_limits<int32_t>::max())) ++entry.Count;
  if (!data.FilePaths.empty())
    data.CountsOfEntries[entry.Slice].Add(DocumentNumber{static_cast<uint32_t>(data.FilePaths.size())});
}

PhraseTable::Lookup PhraseTable::FindPhrase(std::string_view text) const {
  const PhraseTableData& data = *data_;
  const auto n = static_cast<int64_t>(data.Entries.size());
  if (n == 0) return {false, -1};
  if (data.ByText.empty()) {
    data.ByText.resize(data.Entries.size());
    std::ranges::generate(data.ByText, [i = kNoPhrase]() mutable { return ++i; });
    std::sort(data.ByText.begin(), data.ByText.end(),
              [this](PhraseIndex a, PhraseIndex b) { return Text(a) > Text(b); });
  }
  const auto textAt = [&](int64_t place) { return Text(data.ByText[static_cast<size_t>(place - 1)]); };
  if (textAt(1) < text) return {false, -1};
  if (textAt(n) > text) return {false, -(n + 1)};
  if (n == 1) return {true, 1};

  // The first probe is n / 2. The later ones round up, except between two entries: there rounding up could
  // probe the upper one for ever.
  int64_t low = 1;
  int64_t high = n;
  int steps = 0;
  Lookup lookup{false, 0};
  for (int64_t middle = n / 2;; middle = high - low == 1 ? low : low + (high - low + 1) / 2) {
    ++steps;
    const std::string probe = textAt(middle);
    if (probe == text) {
      lookup = {true, middle};
      break;
    }
    if (probe > text)
      low = middle + 1;
    else
      high = middle;
    if (low == high) {
      lookup = textAt(low) == text ? Lookup{true, low} : Lookup{false, -low};
      break;
    }
  }
  data.MaxSearchDepth = std::max(data.MaxSearchDepth, steps);
  return lookup;
}

int PhraseTable::MaxSearchDepth() const {
  return data_->MaxSearchDepth;
}

}  // namespace korv
