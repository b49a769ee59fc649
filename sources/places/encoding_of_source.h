#pragma once

#include <cstddef>

#include "engine/corpus/corpus.h"
#include "sources/read/text_decoder.h"

namespace korv {

/// The encoding in which a text of the run was read; of a document, that of the text extracted from it.
inline TextEncoding EncodingOfSource(const Corpus& corpus, size_t source) {
  if (corpus.Sources[source].Origin.IsUtf8) return TextEncoding::Utf8;
  return corpus.Options.Reading.DeclaredEncodings ? TextEncoding::Windows1252 : TextEncoding::Ansi;
}

}  // namespace korv
