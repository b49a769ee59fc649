#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "report/text_output.h"

namespace korv {

/// A text box takes text while it holds at most this many characters.
inline constexpr size_t kTextBoxCapacity = 65000;

/// The multi-line text box of a window, as far as output needs it. Lengths are in characters; a line break
/// of the text counts as the two characters CR LF.
class TextBox {
 public:
  virtual ~TextBox() = default;
  virtual size_t Length() const = 0;
  virtual void Append(std::string_view text) = 0;
  /// Keeps the first `characters` characters.
  virtual void Truncate(size_t characters) = 0;
  virtual void Clear() = 0;
  /// Moves the caret to the end and shows what is there.
  virtual void ShowEnd() = 0;
};

/// What the box needs to know of the program around it when it fills up.
struct OutputBoxHooks {
  std::function<void()> ClearBusy = [] {};
  /// ProgressCountText() of the count that is running; empty when none is.
  std::function<std::string()> CountSoFar = [] { return std::string(); };
};

/// Output to the text box of a window. On the window's thread.
class OutputBox final : public TextOutput {
 public:
  explicit OutputBox(TextBox& box, OutputBoxHooks hooks = {}) : box_(box), hooks_(std::move(hooks)) {}

  bool OutputToTxb(std::string_view text) override;
  void Clear() override;
  bool Full() const override { return full_; }
  /// Puts back what the box held before: `text`, and whether it was full with how much Kept().
  void Restore(std::string_view text, bool full, size_t kept);
  size_t Kept() const override { return kept_; }
  size_t Room() const override;

 private:
  void MarkFull();

  TextBox& box_;
  OutputBoxHooks hooks_;
  bool full_ = false;
  size_t kept_ = 0;
};

}  // namespace korv
