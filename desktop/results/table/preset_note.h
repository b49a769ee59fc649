#pragma once

#include <QWidget>
#include <string>

class QPushButton;

namespace korv {

class ElidingLabel;

/// What is to be said of the preset that the table follows, with a way out.
class PresetNote final : public QWidget {
 public:
  explicit PresetNote(QWidget* parent);

  ElidingLabel* lblPresetNote = nullptr;
  QPushButton* cmdCountShortWords = nullptr;

  /// An empty text hides the note.
  void Say(const std::string& text, bool offerShortWords);
};

}  // namespace korv
