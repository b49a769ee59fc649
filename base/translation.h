#pragma once

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

namespace korv {

/// Texts that people read stand in the code in English, inside Tr(), TrCount() or TrLater(), from where
/// scripts/texts gathers them into the table that translators copy (app/texts/korv.pot). Names of columns,
/// options, settings and files are no such texts: programs read them too.

/// Looks from now on for the catalogue <folder>/<language>/LC_MESSAGES/korv.mo of the user's languages, which
/// the environment names (LANGUAGE, LC_ALL, LC_MESSAGES, LANG; see gettext(3)). Once, before any text is
/// shown and before other threads start. Without a catalogue, in the locale "C" and on systems without
/// gettext everything stays English.
void UseTranslations(const std::filesystem::path& folder);

/// The language of the catalogue in use, as it names it ("de", "pt_BR"); empty when there is none.
std::string TranslationLanguage();

/// What stands for `english` in the user's language: UTF-8, never null, valid as long as the program runs.
/// `english` itself when the catalogue has nothing for it. Any thread; costs a look into a hash table.
const char* Tr(const char* english);

/// The same for a text that depends on a number: `one` is for 1, `other` for all else in English; a language
/// may have more forms, or one.
const char* TrCount(const char* one, const char* other, uint64_t count);

/// A text of a table of constants, which is given to Tr() where it is shown.
constexpr const char* TrLater(const char* english) {
  return english;
}

/// `pattern` with the first of `values` in place of each "%1", the second in place of "%2", to "%9". What has
/// no value stays; values are not looked into. Sentences are made this way instead of being put together, as
/// other languages have other orders.
std::string Fill(std::string_view pattern, std::initializer_list<std::string_view> values);

}  // namespace korv
