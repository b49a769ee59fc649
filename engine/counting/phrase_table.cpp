#include "engine/counting/phrase_table.h"

#include <algorithm>

#include "engine/counting/phrase_table_data.h"
#include "engine/text/folding.h"
#include "engine/text/unicode.h"

namespace korv {

namespace {

PhraseEntry& Entry(PhraseTableData& data, PhraseIndex i) {
  return data.Entries[i - 1];
}

}  // namespace

PhraseTable::PhraseTable() : data_(std::make_unique<PhraseTableData>()) {}
PhraseTable::~PhraseTable() = default;
PhraseTable::PhraseTable(PhraseTable&&) noexcept = default;
PhraseTable& PhraseTable::operator=(PhraseTable&&) noexcept = default;

uint64_t PhraseTable::PhraseCount() const {
  return data_->PhraseCount.load(std::memory_order_relaxed);
}
uint64_t PhraseTable::Occurrences() const {
  return data_->Occurrences;
}
uint64_t PhraseTable::LongPhrases() const {
  return data_->LongPhrases;
}

PhraseIndex PhraseTable::EntryCount() const {
  return static_cast<PhraseIndex>(data_->Entries.size());
}

void PhraseTable::AppendText(PhraseIndex i, std::string& out) const {
  const PhraseEntry& entry = Entry(*data_, i);
  const WordNumber* word = data_->Corpus.Tokens.data() + entry.First;
  out += data_->Corpus.Words.Text(*word);
  for (uint8_t k = 1; k < entry.Words; ++k) {
    out += ' ';
    out += data_->Corpus.Words.Text(*++word);
  }
}

std::string PhraseTable::Text(PhraseIndex i) const {
  std::string text;
  AppendText(i, text);
  return text;
}

void PhraseTable::Prefetch(PhraseIndex i, PhraseIndex later) const {
  const size_t entries = data_->Entries.size();
  if (later - 1 < entries) {
    __builtin_prefetch(data_->Entries.data() + later - 1);
    if (!data_->Rank.empty()) __builtin_prefetch(data_->Rank.data() + later);
  }
  if (i - 1 < entries) __builtin_prefetch(data_->Corpus.Tokens.data() + Entry(*data_, i).First);
}

std::string PhraseTable::Key(PhraseIndex i) const {
  return FoldKey(FoldAccents(Text(i)));
}

uint32_t PhraseTable::Count(PhraseIndex i) const {
  return Entry(*data_, i).Count;
}
uint32_t PhraseTable::First(PhraseIndex i) const {
  return Entry(*data_, i).First;
}
int PhraseTable::Words(PhraseIndex i) const {
  return Entry(*data_, i).Words;
}

int PhraseTable::Characters(PhraseIndex i) const {
  const PhraseEntry& entry = Entry(*data_, i);
  int characters = entry.Words - 1;
  for (uint8_t k = 0; k < entry.Words; ++k)
    characters += data_->Corpus.Words.Characters(data_->Corpus.Tokens[entry.First + k]);
  return characters;
}

bool PhraseTable::Listed(PhraseIndex i) const {
  return Entry(*data_, i).Listed;
}
void PhraseTable::SetListed(PhraseIndex i, bool listed) {
  Entry(*data_, i).Listed = listed;
}

PhraseIndex PhraseTable::ChainHead() const {
  return data_->Chain.empty() ? 0 : data_->Chain.front();
}

uint32_t PhraseTable::ChainPosition(PhraseIndex i) const {
  return data_->Rank.empty() ? 0 : data_->Rank[i];
}

PhraseIndex PhraseTable::AtChainPosition(uint32_t position) const {
  return position - 1 < data_->Chain.size() ? data_->Chain[position - 1] : 0;
}

PhraseIndex PhraseTable::ChainNext(PhraseIndex i) const {
  const uint32_t rank = ChainPosition(i);
  return rank == 0 || rank == data_->Chain.size() ? 0 : data_->Chain[rank];
}

const korv::Corpus& PhraseTable::Corpus() const {
  return data_->Corpus;
}

std::span<const uint32_t> PhraseTable::Places(PhraseIndex i) const {
  const auto& places = data_->Corpus.Places;
  if (places.empty()) return {};
  const PhraseEntry& entry = Entry(*data_, i);
  return std::span(places).subspan(entry.Slice, entry.Count);
}

DocumentCounts PhraseTable::Files(PhraseIndex i) const {
  if (!data_->CountsOfEntries.empty()) return data_->CountsOfEntries[Entry(*data_, i).Slice];
  DocumentCounts counts;
  if (data_->FileNumberOfSource.empty()) return counts;
  const std::span<const uint32_t> places = Places(i);
  std::vector<uint32_t> files(places.size());
  std::transform(places.begin(), places.end(), files.begin(),
                 [this](uint32_t place) { return data_->FileNumberOfSource[data_->Corpus.SourceAt(place)]; });
  std::sort(files.begin(), files.end());
  for (const uint32_t file : files) counts.Add(file);
  return counts;
}

uint32_t PhraseTable::FileCount(PhraseIndex i) const {
  return Files(i).FileCount();
}
const std::vector<std::filesystem::path>& PhraseTable::FilePaths() const {
  return data_->FilePaths;
}

}  // namespace korv
