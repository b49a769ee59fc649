#pragma once

#include <string>
#include <string_view>

#include "engine/text/unicode.h"
#include "report/output_box.h"

namespace korv {

/// A text box that is only its text.
class FakeTextBox final : public TextBox {
 public:
  size_t Length() const override { return CharacterCount(text); }
  void Append(std::string_view more) override {
    text += more;
    ++appends;
  }
  void Truncate(size_t characters) override {
    size_t at = 0;
    for (size_t i = 0; i < characters && at < text.size(); ++i) NextCharacter(text, at);
    text.resize(at);
  }
  void Clear() override { text.clear(); }
  void ShowEnd() override { ++shown; }

  std::string text;
  int appends = 0;
  int shown = 0;
};

}  // namespace korv
