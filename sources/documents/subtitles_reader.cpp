#include <utility>

#include "sources/documents/decoded_text.h"
#include "sources/documents/extracted_document.h"
#include "sources/documents/subtitles_text.h"

namespace korv {

namespace {

class Subtitles final : public DocumentReader {
 public:
  Subtitles(std::string_view extension, SubtitleFormat format) : extension_(extension), format_(format) {}

  bool TakesExtension(std::string_view extension) const override { return extension == extension_; }
  Expected<DocumentText, DocumentRefusal> Open(const std::filesystem::path& path, OpenedText opened,
                                               const ReadContext& /*context*/) const override {
    return OpenExtracted(path, std::move(opened), PlaceUnit::Cue,
                         [&](OpenedText file, ExtractedText& text) -> std::optional<DocumentFault> {
                           FileBytes bytes(std::move(file));
                           const Expected<std::string, DocumentFault> decoded = ReadDecoded(bytes);
                           if (!decoded) return decoded.Error();
                           AddSubtitles(*decoded, format_, text);
                           return text.Size() > 0 ? std::nullopt : std::optional(DocumentFault::NoText);
                         });
  }

 private:
  std::string_view extension_;
  SubtitleFormat format_;
};

}  // namespace

const DocumentReader& SrtReader() {
  static const Subtitles kReader("srt", SubtitleFormat::Srt);
  return kReader;
}

const DocumentReader& VttReader() {
  static const Subtitles kReader("vtt", SubtitleFormat::Vtt);
  return kReader;
}

const DocumentReader& LrcReader() {
  static const Subtitles kReader("lrc", SubtitleFormat::Lrc);
  return kReader;
}

}  // namespace korv
