#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/newest_job.h"
#include "desktop/desktop.h"
#include "desktop/results/pictures/make_picture.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace korv {

class PictureCanvas;

/// Pictures of a run: where phrases stand, in which files, how often and how long they are, and how two sides
/// differ. They are made on a worker, and only while the pane is in sight.
class PicturesPane final : public QWidget {
 public:
  PicturesPane(const Desktop& desktop, QWidget* parent);
  ~PicturesPane() override;

  QComboBox* cboPicture = nullptr;
  QPushButton* cmdSavePicture = nullptr;
  QLabel* lblPictureNotice = nullptr;
  PictureCanvas* picCanvas = nullptr;

  /// In the picture, by the user. Selects its row in the table; false where it has none.
  std::function<bool(PhraseIndex)> PhrasePicked = [](PhraseIndex) { return true; };

  /// Null for nothing. What a run with two sides is compared by is what it was counted for, unless
  /// `comparedBy` says otherwise.
  void Show(std::shared_ptr<const CountedRun> run, std::optional<ComparisonBasis> comparedBy = {});
  /// The user compares by something else.
  void CompareBy(ComparisonBasis basis);
  /// The phrases of the first two pictures: the first of the `selected` ones, kMostPicturedPhrases at most.
  /// The most frequent ones where none is selected.
  void ShowPhrases(std::vector<PhraseIndex> phrases, size_t selected);

  void cboPicture_Click();
  void cmdSavePicture_Click();
  /// Nothing is being made.
  bool Idle() const { return jobs_.Idle(); }

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  PictureKind Kind() const;
  bool WantsPhrases() const;
  void OfferKinds();
  /// Makes the picture anew, when the pane is shown.
  void Renew();
  void ShowPicked();
  void ShowNotice(const QString& text);
  void ShowMade(const std::shared_ptr<const Picture>& made);
  void TellNotSaved(const std::string& path, const std::string& why);

  const Desktop& desktop_;
  std::shared_ptr<const CountedRun> run_;
  std::vector<PhraseIndex> phrases_;
  ComparisonBasis comparedBy_ = ComparisonBasis::Words;
  size_t selected_ = 0;  ///< phrases_ and those that have no room in the picture.
  bool outdated_ = false;
  NewestJob jobs_;  ///< Last: its work uses the above.
};

}  // namespace korv
