#pragma once

#include <string_view>

#include "sources/documents/extracted_text.h"

namespace korv {

/// Makes running text of what a program has taken out of the pages of a document. A form feed ends each page,
/// a line feed each line. UTF-8.
///
/// Each page is a place of the text, by its number, and phrases end with it. Running heads are left out:
/// lines among the first two or the last two of a page that stand there, but for their digits, on more than
/// half of the pages, of three or more. A word parted by a hyphen at the end of a line goes on the line in
/// one piece, with all that follows up to a blank: without the hyphen where that form occurs elsewhere in the
/// text or the one with the hyphen does not, else with it.
///
/// Linear in the text, of which it holds the lines once more.
void AddPages(std::string_view pages, ExtractedText& text);

}  // namespace korv
