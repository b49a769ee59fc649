#include "sources/documents/other_readers.h"

#include <algorithm>
#include <array>

#include "base/translation.h"

namespace korv {

// One for each kind of document, in the file of its name.
const DocumentReader& OdtReader();
const DocumentReader& FlatOdtReader();
const DocumentReader& EpubReader();
const DocumentReader& PdfReader();
const DocumentReader& RtfReader();
#ifdef KORV_ARCHIVE
const DocumentReader& PackedReader();
#endif
const DocumentReader& SrtReader();
const DocumentReader& VttReader();
const DocumentReader& LrcReader();
const DocumentReader& TmxReader();
const DocumentReader& XliffReader();
const DocumentReader& PoReader();
const DocumentReader& XmlReader();

namespace {

struct Other {
  const DocumentReader& (*Reader)();
  const char* Kind;
  bool IsText;  ///< Such files can be read as plain text or mark-up too.
};

constexpr std::array kOthers = {
    Other{&OdtReader, TrLater("OpenDocument text"), false},
    Other{&FlatOdtReader, TrLater("OpenDocument text"), true},
    Other{&EpubReader, TrLater("E-book"), false},
    Other{&PdfReader, TrLater("PDF document"), false},
    Other{&RtfReader, TrLater("RTF document"), false},
    Other{&SrtReader, TrLater("Subtitles"), true},
    Other{&VttReader, TrLater("Subtitles"), true},
    Other{&LrcReader, TrLater("Words of a song"), true},
    Other{&TmxReader, TrLater("Translation memory"), true},
    Other{&XliffReader, TrLater("XLIFF"), true},
    Other{&PoReader, TrLater("Catalogue of translations"), true},
    Other{&XmlReader, "XML", true},
#ifdef KORV_ARCHIVE
    Other{&PackedReader, TrLater("Packed file"), false},
#endif
};

const Other* Find(std::string_view extension) {
  const auto found = std::find_if(kOthers.begin(), kOthers.end(), [extension](const Other& other) {
    return other.Reader().TakesExtension(extension);
  });
  return found == kOthers.end() ? nullptr : &*found;
}

}  // namespace

const DocumentReader* OtherReaderOf(std::string_view extension, std::string_view head, bool isTyped) {
  const Other* const other = Find(extension);
  if (other == nullptr || head.empty() || (isTyped && other->IsText)) return nullptr;
  const DocumentReader& reader = other->Reader();
  return reader.TakesBeginning(head) ? &reader : nullptr;
}

bool IsOtherExtension(std::string_view extension) {
  return Find(extension) != nullptr;
}

std::string_view KindOfOther(std::string_view extension) {
  const Other* const other = Find(extension);
  return other == nullptr ? std::string_view() : other->Kind;
}

}  // namespace korv
