#pragma once

#include <string_view>

#include "app/run/output_box.h"

class QPlainTextEdit;

namespace korv {

/// The window's text box as output sees it: lengths in characters, a line break counting as two. All that
/// the box holds comes through here.
class OutputTextBox final : public TextBox {
 public:
  explicit OutputTextBox(QPlainTextEdit& box) : box_(box) {}

  size_t Length() const override { return length_; }
  void Append(std::string_view text) override;
  void Truncate(size_t characters) override;
  void Clear() override;
  void ShowEnd() override;

 private:
  QPlainTextEdit& box_;
  size_t length_ = 0;
};

}  // namespace korv
