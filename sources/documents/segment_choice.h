#pragma once

#include <string>
#include <string_view>

namespace korv {

/// Which segments of a file for translators are text: DocumentChoice::Segments.
class SegmentChoice {
 public:
  explicit SegmentChoice(std::string_view choice);

  /// Of a pair with these languages, as the file names them; empty where it does not.
  bool WantsSource(std::string_view language) const;
  bool WantsTarget(std::string_view language) const;

 private:
  bool IsOf(std::string_view language) const;

  std::string choice_;  ///< Lower-cased.
};

/// Whether a language is the chosen one, or a kind of it: "pt-BR" and "pt_BR" of "pt". Without regard to
/// case.
bool IsLanguage(std::string_view language, std::string_view chosen);

}  // namespace korv
