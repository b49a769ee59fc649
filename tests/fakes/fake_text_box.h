#pragma once

#include <string>
#include <string_view>

#include "app/run/output_box.h"
#include "engine/text/unicode.h"

namespace korv {

/// A text box that is only its text.
class FakeTextBox final : public TextBox {
 public:
  size_t Length() const override { return CharacterCount(Text); }
  void Append(std::string_view more) override {
    Text += more;
    ++Appends;
  }
  void Truncate(size_t characters) override {
    size_t at = 0;
    for (size_t i = 0; i < characters && at < Text.size(); ++i) NextCharacter(Text, at);
    Text.resize(at);
  }
  void Clear() override { Text.clear(); }
  void ShowEnd() override { ++Shown; }

  std::string Text;
  int Appends = 0;
  int Shown = 0;
};

}  // namespace korv
