#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/expected.h"
#include "base/yielder.h"
#include "platform/files.h"
#include "sources/documents/document_fault.h"

namespace korv {

/// Footnotes, endnotes, headers and footers together may be as long as this, in bytes of XML; and so may the
/// text itself.
inline constexpr uint64_t kMostDocxPartBytes = 20971520;

/// The text of a .docx document as a reader sees it (see DocxShownText): the text itself with its boxes, then
/// footnotes, endnotes, and headers and footers, of which each distinct line stands once. Comments are left
/// out. UTF-8, a line with CR LF for each paragraph.
Expected<std::string, DocumentFault> DocxWithNotes(std::unique_ptr<InputFile> archive, Yielder& yielder);

}  // namespace korv
