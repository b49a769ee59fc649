#pragma once

#include <limits>
#include <string>
#include <string_view>

#include "report/text_output.h"

namespace korv {

/// Text output that never gets full.
class FakeTextOutput final : public TextOutput {
 public:
  bool OutputToTxb(std::string_view text) override {
    Text += text;
    return true;
  }
  void Clear() override { Text.clear(); }
  bool Full() const override { return false; }
  size_t Kept() const override { return 0; }
  size_t Room() const override { return std::numeric_limits<size_t>::max(); }

  std::string Text;
};

}  // namespace korv
