#pragma once

#include <QString>
#include <QStringList>
#include <string>
#include <vector>

namespace korv {

/// What of a text stands outside of the brackets U+27E6 and U+27E7, between which the catalogue of the tests
/// puts each line of a translation. Mark-up is left out.
QString OutsideOfTranslations(const QString& text);

/// The texts of all windows that there are, shown or not: captions, titles, tool tips, descriptions for those
/// who cannot see, placeholders, items, headings and cells, menus (which are opened for that). Given are
/// those that hold a word outside of translations, as "window/control what: text". `data` are words that are
/// nobody's to translate.
std::vector<std::string> UntranslatedTexts(const QStringList& data);

/// The words of a text outside of translations that are not among `data`, upper and lower case being alike;
/// an unmatched bracket counts as one.
QStringList UntranslatedWords(const QString& text, const QStringList& data);

}  // namespace korv
