#include "sources/read/piece_cutter.h"

#include <algorithm>
#include <utility>

#include "sources/scan/line_scanner.h"

namespace korv {

/// One piece.
class PieceCutter::Job final : public TeamJob {
 public:
  explicit Job(PieceCutter& cutter) : cutter_(cutter) {}

  void Begin(TextPiece piece, bool finish) {
    piece_ = std::move(piece);
    finish_ = finish;
    facts_ = {};
  }
  size_t Worker() const { return worker_; }
  const CorpusPiece& Cut() const { return cut_; }
  const CutFacts& Facts() const { return facts_; }
  uint64_t Offset() const { return piece_.Offset; }
  /// Whether it was cut to its end.
  bool Whole() const { return whole_; }

 protected:
  void Do(size_t worker) override {
    worker_ = worker;
    CorpusBuilder& builder = *cutter_.builders_[worker];
    builder.BeginPiece();
    TextReader reader(std::move(piece_.Bytes), nullptr,
                      piece_.Encoding ? EncodingPlan(*piece_.Encoding) : EncodingPlan(nullptr),
                      LongLines::Anywhere, piece_.Part);
    LineScanner<CorpusBuilder> scanner(cutter_.rules_, {}, builder);
    scanner.BeginSource();
    const Yielder& yielder = cutter_.yielder_;
    whole_ = false;
    while (finish_ || !yielder.Stopped()) {
      whole_ = !reader.NextLine();
      if (whole_) break;
      facts_.Lines += reader.StartsLine();
      builder.BeginLine(reader.LineOffset(), facts_.Lines, reader.StartsLine(),
                        reader.StartsLine() || !scanner.HoldsBack());
      scanner.ScanLine(reader.Line(), reader.StartsLine(), reader.EndsLine());
    }
    facts_.ReadAs = reader.ReadAs();
    facts_.IllFormed = reader.IllFormed();
    facts_.TextBytes = scanner.TextBytes();
    builder.TakePiece(cut_);
  }

 private:
  PieceCutter& cutter_;
  TextPiece piece_;
  bool finish_ = false;
  bool whole_ = false;
  size_t worker_ = 0;
  CutFacts facts_;
  CorpusPiece cut_;
};

PieceCutter::PieceCutter(const WordRules& rules, CorpusBuilder& corpus, Yielder& yielder, size_t threads)
    : rules_(rules), corpus_(corpus), yielder_(yielder), threads_(threads) {}

PieceCutter::~PieceCutter() = default;

void PieceCutter::BeginText(bool finish) {
  finish_ = finish;
  whole_ = true;
  facts_ = {};
}

void PieceCutter::Add(TextPiece piece) {
  if (!team_) {
    team_.emplace(threads_);
    for (size_t worker = 0; worker < team_->Workers(); ++worker)
      builders_.push_back(
          std::make_unique<CorpusBuilder>(rules_, corpus_.Corpus().Options, *corpus_.Corpus().Lists));
    numbers_.resize(team_->Workers());
  }
  // One is being done by each thread, and one waits for it.
  if (busy_.size() >= 2 * team_->Workers()) AppendFirst();
  std::unique_ptr<Job> job;
  if (idle_.empty()) {
    job = std::make_unique<Job>(*this);
  } else {
    job = std::move(idle_.back());
    idle_.pop_back();
  }
  job->Begin(std::move(piece), finish_);
  busy_.push_back(std::move(job));
  team_->Add(*busy_.back());
}

CutFacts PieceCutter::Finish() {
  while (!busy_.empty()) AppendFirst();
  if (!whole_) {
    // The corpus does not know all words of the builders.
    team_.reset();
    builders_.clear();
    numbers_.clear();
  }
  return facts_;
}

/// Waits for the first of the pieces that are being cut, and appends it.
void PieceCutter::AppendFirst() {
  std::unique_ptr<Job> job = std::move(busy_.front());
  busy_.pop_front();
  team_->Wait(*job, yielder_);
  if (whole_) {
    const CutFacts& cut = job->Facts();
    corpus_.Append(job->Cut(), {job->Offset(), facts_.Lines}, numbers_[job->Worker()]);
    facts_.ReadAs = std::max(facts_.ReadAs, cut.ReadAs);
    facts_.IllFormed += cut.IllFormed;
    facts_.TextBytes += cut.TextBytes;
    facts_.Lines += cut.Lines;
    whole_ = job->Whole();
  }
  idle_.push_back(std::move(job));
}

}  // namespace korv
