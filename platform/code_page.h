#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace korv {

/// The encoding in which the programs of this system write plain text.
class CodePage {
 public:
  virtual ~CodePage() = default;
  /// Appends `text`, whole characters of UTF-8, to `bytes` in this encoding; a character that it lacks
  /// becomes "?". Linear in the text.
  virtual void Encode(std::string_view text, std::string& bytes) = 0;
};

/// The code page that the user's system is set to; null when that is UTF-8, or when the system does not say.
std::unique_ptr<CodePage> SystemCodePage();

/// The code page of a name that the system's converter knows ("ISO-8859-1", on Windows a number as in
/// "1252"); null for UTF-8, for plain ASCII, which is what a system says that was never told, and for unknown
/// names.
std::unique_ptr<CodePage> CodePageOfName(const std::string& name);

}  // namespace korv
