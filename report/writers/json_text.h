#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Texts as JSON has them (RFC 8259): in quotes, with what must be escaped escaped.
class JsonText {
 public:
  /// Bytes that are no UTF-8, which names of files may have, become U+FFFD. Valid until the next call. Cost:
  /// linear in the text.
  std::string_view Of(std::string_view text);

 private:
  std::string quoted_;
};

}  // namespace korv
