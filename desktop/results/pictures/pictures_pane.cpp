#include "desktop/results/pictures/pictures_pane.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "base/translation.h"
#include "desktop/results/pictures/picture_canvas.h"
#include "desktop/results/pictures/picture_file.h"
#include "desktop/results/pictures/point_picture.h"
#include "desktop/toolkit/file_filter.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/guarded.h"
#include "desktop/widgets/layouts.h"

namespace korv {
namespace {

struct OfferedKind {
  PictureKind Kind;
  const char* Caption;
};
constexpr std::array<OfferedKind, 5> kKinds = {{{PictureKind::Places, TrLater("Where phrases stand")},
                                                {PictureKind::Files, TrLater("Phrases by file")},
                                                {PictureKind::Ranks, TrLater("Frequency by rank")},
                                                {PictureKind::Lengths, TrLater("Lengths of phrases")},
                                                {PictureKind::Sides, TrLater("Log ratio and G2")}}};

}  // namespace

PicturesPane::PicturesPane(const Desktop& desktop, QWidget* parent)
    : QWidget(parent), desktop_(desktop), jobs_(desktop.Loop) {
  auto* stack = Tight(new QVBoxLayout(this));
  auto* row = Bare(new QHBoxLayout);
  cboPicture = MakeCombo("cboPicture", Tr("Picture"), this);
  cboPicture->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  row->addWidget(cboPicture);
  cmdSavePicture = MakeButton("cmdSavePicture", Tr("Sa&ve picture..."), this);
  row->addWidget(cmdSavePicture);
  row->addStretch(1);
  stack->addLayout(row);
  lblPictureNotice = MakeLabel("lblPictureNotice", this);
  lblPictureNotice->setWordWrap(true);
  stack->addWidget(lblPictureNotice);
  auto* scroll = Described(Named(new QScrollArea(this), "scrPicture"), Tr("Picture"));
  picCanvas = Named(new PictureCanvas(scroll), "picCanvas");
  scroll->setWidget(picCanvas);
  scroll->setWidgetResizable(true);
  stack->addWidget(scroll, 1);
  OfferKinds();
  ShowMade(nullptr);
  picCanvas->PickChanged = Guarded(desktop_.Messages, "picCanvas_Click", [this] { ShowPicked(); });
  connect(cboPicture, &QComboBox::activated, this,
          Guarded(desktop_.Messages, "cboPicture_Click", [this] { cboPicture_Click(); }));
  connect(cmdSavePicture, &QPushButton::clicked, this,
          Guarded(desktop_.Messages, "cmdSavePicture_Click", [this] { cmdSavePicture_Click(); }));
}

PicturesPane::~PicturesPane() = default;

void PicturesPane::Show(std::shared_ptr<const CountedRun> run, std::optional<ComparisonBasis> comparedBy) {
  run_ = std::move(run);
  comparedBy_ = comparedBy.value_or(run_ ? run_->Comparison.Basis : ComparisonBasis::Words);
  phrases_.clear();
  selected_ = 0;
  OfferKinds();
  Renew();
}

void PicturesPane::ShowPhrases(std::vector<PhraseIndex> phrases, size_t selected) {
  if (phrases == phrases_ && selected == selected_) return;
  phrases_ = std::move(phrases);
  selected_ = selected;
  if (WantsPhrases()) Renew();
}

void PicturesPane::CompareBy(ComparisonBasis basis) {
  if (basis == comparedBy_) return;
  comparedBy_ = basis;
  if (Kind() == PictureKind::Sides) Renew();
}

void PicturesPane::OfferKinds() {
  const PictureKind chosen = cboPicture->count() == 0 ? PictureKind::Places : Kind();
  cboPicture->clear();
  for (const OfferedKind& offered : kKinds) {
    // One file has nothing to compare itself with.
    const bool oneText = !run_ || run_->Table.Corpus().Sources.size() < 2;
    if (offered.Kind == PictureKind::Files && oneText) continue;
    if (offered.Kind == PictureKind::Sides && !(run_ && run_->Facts.SecondSide)) continue;
    cboPicture->addItem(Tr(offered.Caption), static_cast<int>(offered.Kind));
  }
  cboPicture->setCurrentIndex(std::max(0, cboPicture->findData(static_cast<int>(chosen))));
}

PictureKind PicturesPane::Kind() const {
  return static_cast<PictureKind>(cboPicture->currentData().toInt());
}

bool PicturesPane::WantsPhrases() const {
  return Kind() == PictureKind::Places || Kind() == PictureKind::Files;
}

void PicturesPane::cboPicture_Click() {
  Renew();
}

void PicturesPane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (outdated_) Renew();
}

void PicturesPane::Renew() {
  outdated_ = !isVisible();
  if (outdated_) return;
  jobs_.Stop();
  if (!run_) return ShowMade(nullptr);
  jobs_.Start([this, run = run_,
               choice = PictureChoice{.Kind = Kind(), .Phrases = phrases_, .ComparedBy = comparedBy_},
               numbers = desktop_.Numbers](NewestJob::Turn& turn) {
    const auto made = MakePicture(choice, *run, numbers, turn.Yielder());
    turn.Tell([this, made] { ShowMade(made); });
  });
}

void PicturesPane::ShowMade(const std::shared_ptr<const Picture>& made) {
  picCanvas->Show(made, run_ ? Tr("No phrase is listed.") : Tr("Nothing has been counted yet."));
  cmdSavePicture->setEnabled(made != nullptr);
  if (WantsPhrases() && selected_ > phrases_.size())
    return ShowNotice(QString(Tr("The first %1 of %2 selected phrases are shown."))
                          .arg(QString::number(phrases_.size()),
                               ToQt(desktop_.Numbers.Grouped(static_cast<int64_t>(selected_)))));
  const bool points = made && made->WithPoints();
  ShowNotice(points ? Tr("Click a point, or press Left or Right in the picture, to see its phrase.")
                    : QString());
}

void PicturesPane::ShowNotice(const QString& text) {
  lblPictureNotice->setText(text);
  lblPictureNotice->setVisible(!text.isEmpty());
}

void PicturesPane::ShowPicked() {
  const PointPicture& points = *picCanvas->Shown()->WithPoints();
  const size_t point = *picCanvas->Picked();
  const QString text = points.TextOf(point);
  ShowNotice(PhrasePicked(points.PhraseOf(point))
                 ? text
                 : QString(Tr("%1 \u2013 not in the table as it is")).arg(text));
}

void PicturesPane::cmdSavePicture_Click() {
  const Picture* shown = picCanvas->Shown();
  if (shown == nullptr) return;
  std::string patterns;
  for (const PictureForm& form : PictureForms())
    patterns += std::string(patterns.empty() ? "*." : " *.") + form.Extension;
  const std::string usual = PictureForms().front().Extension;
  const auto chosen = desktop_.Dialogs.ChooseFileToSave({.Title = Tr("Save picture"),
                                                         .Filter = FileFilter(Tr("Pictures"), patterns),
                                                         .InitialPath = FromQt(shown->Title()) + "." + usual,
                                                         .Extension = usual,
                                                         .AsksBeforeReplacing = true});
  if (!chosen) return;
  const std::filesystem::path path = PathFromText(*chosen);
  const PictureForm* form = PictureFormOfFile(path);
  if (form == nullptr) return TellNotSaved(*chosen, Tr("This copy of Korv saves pictures as PNG only."));
  const auto error =
      WritePicture(desktop_.Files, path, form->Bytes(*shown, picCanvas->Style(), picCanvas->size()));
  if (error) TellNotSaved(*chosen, error->Description);
}

void PicturesPane::TellNotSaved(const std::string& path, const std::string& why) {
  desktop_.Messages.Show({.Text = Fill(Tr("The picture cannot be saved as %1."), {path}) + "\n\n" + why,
                          .Title = Tr("Save picture"),
                          .Icon = Icon::Exclamation});
}

}  // namespace korv
