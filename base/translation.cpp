#include "base/translation.h"

#ifdef KORV_GETTEXT
#include <libintl.h>

#include <clocale>
#endif

namespace korv {

#ifdef KORV_GETTEXT
namespace {

constexpr const char* kCatalogue = "korv";

}  // namespace

void UseTranslations(const std::filesystem::path& folder) {
  // Reasons of the system come in the same language, and in the characters that the terminal has.
  std::setlocale(LC_MESSAGES, "");
  std::setlocale(LC_CTYPE, "");
  bindtextdomain(kCatalogue, folder.c_str());
  bind_textdomain_codeset(kCatalogue, "UTF-8");
}

std::string TranslationLanguage() {
  // The text for "" is what the catalogue says of itself, a field a line.
  const std::string_view facts = dgettext(kCatalogue, "");
  constexpr std::string_view kField = "Language: ";
  const size_t field = facts.find(kField);
  if (field == std::string_view::npos) return {};
  const std::string_view rest = facts.substr(field + kField.size());
  return std::string(rest.substr(0, rest.find('\n')));
}

const char* Tr(const char* english) {
  return *english == '\0' ? english : dgettext(kCatalogue, english);
}

const char* TrCount(const char* one, const char* other, uint64_t count) {
  return dngettext(kCatalogue, one, other, count);
}
#else
void UseTranslations(const std::filesystem::path&) {}

std::string TranslationLanguage() {
  return {};
}

const char* Tr(const char* english) {
  return english;
}

const char* TrCount(const char* one, const char* other, uint64_t count) {
  return count == 1 ? one : other;
}
#endif

std::string Fill(std::string_view pattern, std::initializer_list<std::string_view> values) {
  std::string filled;
  for (size_t at = 0; at < pattern.size(); ++at) {
    const char next = at + 1 < pattern.size() ? pattern[at + 1] : '\0';
    const bool place = pattern[at] == '%' && next >= '1' && static_cast<size_t>(next - '0') <= values.size();
    if (place) {
      filled += values.begin()[next - '1'];
      ++at;
    } else {
      filled += pattern[at];
    }
  }
  return filled;
}

}  // namespace korv
