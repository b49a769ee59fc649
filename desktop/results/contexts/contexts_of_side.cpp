#include "desktop/results/contexts/contexts_of_side.h"

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/contexts/context_texts.h"
#include "base/translation.h"
#include "desktop/main_window/open_associated.h"
#include "desktop/results/contexts/contexts_table.h"
#include "desktop/results/contexts/text_view.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/guarded.h"
#include "desktop/widgets/layouts.h"

namespace korv {

namespace {

/// So many contexts are found first, some screens of them.
constexpr size_t kFirstPage = 300;
constexpr size_t kMostCopied = 20'000;

}  // namespace

ContextsOfSide::ContextsOfSide(const Desktop& desktop, Side side, QWidget* parent)
    : QWidget(parent),
      desktop_(desktop),
      side_(side),
      rows_(desktop.Loop, desktop.Files),
      model_(rows_, desktop.Numbers, nullptr),
      finder_(desktop.Loop),
      copier_(desktop.Loop, desktop.Files) {
  auto* layout = Bare(new QVBoxLayout(this));
  lblSideCount = MakeLabel(side == Side::A ? "lblContextCountOfA" : "lblContextCountOfB", this);
  lblSideCount->setWordWrap(true);
  lblSideCount->hide();
  layout->addWidget(lblSideCount);
  tblContexts = new ContextsTable(model_, this);
  if (side == Side::B) Described(Named(tblContexts, "tblContextsOfB"), Tr("Contexts in B"));
  layout->addWidget(tblContexts, 1);
  rows_.Came = [this] { TextsCame(); };
  tblContexts->SightChanged = [this] { WantRows(); };
  connect(tblContexts, &QTableView::doubleClicked, this,
          Guarded(desktop_.Messages, "tblContexts_DoubleClick", [this] { ShowText(); }));
}

ContextsOfSide::~ContextsOfSide() {
  tblContexts->SightChanged = [] {};
  // These must not outlive what they show.
  delete tblContexts;
  delete frmText;
}

void ContextsOfSide::Find(std::shared_ptr<const CountedRun> run, ContextQuery query) {
  query_ = std::move(query);
  const bool compares = run->Facts.SecondSide.has_value();
  if (compares) query_.Of = side_;
  lblSideCount->setVisible(compares);
  finder_.Start([this, run = std::move(run), asked = query_](NewestJob::Turn& turn) {
    FindContexts(run, asked, kFirstPage, turn.Yielder(), [&](std::shared_ptr<const ContextList> list) {
      turn.Tell([this, list = std::move(list)] { Take(list); });
    });
  });
}

void ContextsOfSide::Clear(const std::string& why) {
  finder_.Stop();
  rows_.Show(nullptr);
  model_.Show(nullptr);
  Say(why);
  ShowChanged();
}

void ContextsOfSide::SetAround(size_t around) {
  rows_.SetAround(around);
  TextsCame();
  WantRows();
}

void ContextsOfSide::Say(const std::string& count) {
  const char* const pattern = side_ == Side::A ? Tr("A: %1") : Tr("B: %1");
  lblSideCount->setText(count.empty() ? QString() : ToQt(Fill(pattern, {count})));
  Counted(ToQt(count));
}

void ContextsOfSide::ShowChanged() {
  note_ = model_.List() == nullptr
              ? QString()
              : ToQt(ChangedTextsText(model_.List()->Run(), rows_.Changed(), desktop_.Numbers));
  NoteChanged();
}

bool ContextsOfSide::Idle() const {
  return finder_.Idle() && rows_.Idle() && copier_.Idle() && (frmText == nullptr || frmText->Idle());
}

std::optional<size_t> ContextsOfSide::CurrentPlace() const {
  const int row = tblContexts->currentIndex().row();
  if (model_.List() == nullptr || row < 0) return std::nullopt;
  return model_.List()->PlaceAt(static_cast<size_t>(row));
}

void ContextsOfSide::Take(const std::shared_ptr<const ContextList>& list) {
  // The whole list begins with the rows that are there.
  const bool goesOn = model_.List() != nullptr && !model_.List()->Whole() && list->Whole();
  const int current = goesOn ? tblContexts->currentIndex().row() : -1;
  const auto inSight = goesOn ? tblContexts->RowsInSight() : std::nullopt;
  rows_.Show(list);
  model_.Show(list);
  if (current >= 0) tblContexts->selectRow(current);
  if (inSight) tblContexts->scrollTo(model_.index(inSight->first, 0), QTableView::PositionAtTop);
  Say(OccurrencesText(*list, desktop_.Numbers));
  if (!list->Places().empty() && !goesOn) {
    const int row = static_cast<int>(list->RowOf(0));
    tblContexts->FitPhrase(model_.index(row, static_cast<int>(ContextColumn::Phrase)).data().toString());
    tblContexts->GoTo(row);
    tblContexts->scrollToTop();
  }
  ShowChanged();
  WantRows();
}

void ContextsOfSide::WantRows() {
  const auto inSight = tblContexts->RowsInSight();
  if (!inSight || model_.List() == nullptr) return;
  const auto [first, last] = *inSight;
  std::vector<Place> seen;
  std::vector<Place> near;
  const int page = last - first + 1;
  for (int row = std::max(0, first - page); row <= std::min(model_.rowCount() - 1, last + page); ++row)
    if (const auto place = model_.PlaceAt(row)) (row < first || row > last ? near : seen).push_back(*place);
  rows_.Want(std::move(seen), std::move(near));
}

void ContextsOfSide::TextsCame() {
  model_.TextsCame();
  ShowChanged();
}

void ContextsOfSide::GoBy(int rows) {
  const ContextList* list = model_.List();
  if (list == nullptr || list->Places().empty()) return;
  const auto count = static_cast<int64_t>(list->Places().size());
  const auto at = CurrentPlace();
  const int64_t index = at ? (static_cast<int64_t>(*at) + rows + count) % count : 0;
  tblContexts->GoTo(static_cast<int>(list->RowOf(static_cast<size_t>(index))));
  if (frmText != nullptr && frmText->isVisible()) ShowText();
}

void ContextsOfSide::ShowText() {
  const auto index = CurrentPlace();
  if (!index) return;
  if (frmText == nullptr) {
    frmText = new TextView(desktop_, this);
    frmText->Step = [this](int step) { GoBy(step); };
  }
  frmText->ShowPlace(model_.SharedList(), *index);
  if (!frmText->isVisible()) frmText->show();
}

void ContextsOfSide::OpenSource() {
  const auto index = CurrentPlace();
  if (!index) return;
  const Corpus& corpus = model_.List()->Run().Table.Corpus();
  const auto& path = corpus.Sources[corpus.SourceAt(model_.List()->Places()[*index])].Path;
  if (!path.empty()) OpenWithAssociatedProgram(desktop_.Launcher, desktop_.Messages, PathToText(path));
}

void ContextsOfSide::Copy() {
  const ContextList* list = model_.List();
  if (list == nullptr) return;
  std::vector<Place> places;
  for (const RowRange& range : tblContexts->SelectedRows())
    for (int row = range.First; row <= range.Last && places.size() <= kMostCopied; ++row)
      if (const auto place = model_.PlaceAt(row)) places.push_back(*place);
  if (places.size() > kMostCopied) {
    note_ = Tr("Select at most 20,000 contexts to copy them.");
    return NoteChanged();
  }
  copier_.Copy(model_.SharedList(), std::move(places), rows_.Around());
}

}  // namespace korv
