#pragma once

#include <string>
#include <string_view>

#include "platform/code_page.h"

namespace korv {

/// A code page that has ASCII and "é", as the byte 0xE9.
class FakeCodePage final : public CodePage {
 public:
  void Encode(std::string_view text, std::string& bytes) override {
    for (size_t k = 0; k < text.size();) {
      const size_t start = k++;
      while (k < text.size() && (static_cast<unsigned char>(text[k]) & 0xC0) == 0x80) ++k;
      const std::string_view character = text.substr(start, k - start);
      if (character.size() == 1)
        bytes += character;
      else
        bytes += character == "é" ? '\xE9' : '?';
    }
  }
};

}  // namespace korv
