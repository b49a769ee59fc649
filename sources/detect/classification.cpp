#include "sources/detect/classification.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "engine/text/unicode.h"
#include "sources/read/first_lines.h"

namespace korv {

namespace {

using std::filesystem::path;

constexpr std::string_view kSignatureUtf8 = "\xEF\xBB\xBF";

EncodingSignature SignatureOfFault(FileFault fault) {
  switch (fault) {
    case FileFault::NotFound:
    case FileFault::IsFolder:  // There is no file of that name.
    case FileFault::NotAFolder:
      return EncodingSignature::NotFound;
    case FileFault::PermissionDenied:
      return EncodingSignature::PermissionDenied;
    default:
      return EncodingSignature::CannotOpen;
  }
}

TextFileCode CodeOf(EncodingSignature signature) {
  switch (signature) {
    case EncodingSignature::Utf8:
      return TextFileCode::WindowsText;
    case EncodingSignature::Utf16LittleEndian:
    case EncodingSignature::Utf16BigEndian:
    case EncodingSignature::Utf32BigEndian:
      return TextFileCode::UnicodeNotUtf8;
    default:
      return static_cast<TextFileCode>(signature);
  }
}

EncodingSignature SignatureOfHead(std::string_view head, std::string_view extension) {
  using enum EncodingSignature;
  if (head.empty()) return ZeroLength;
  if (head.size() < 5) return TooShort;
  if (head.starts_with("{\\rtf")) return Rtf;
  if (head.starts_with("\xFF\xFE")) return Utf16LittleEndian;
  if (head.starts_with("\xFE\xFF")) return Utf16BigEndian;
  if (head.starts_with(kSignatureUtf8)) return Utf8;
  if (head.starts_with(std::string_view("\0\0\xFE\xFF", 4))) return Utf32BigEndian;
  if (extension != "xml") return None;
  if (head[0] == '<') return head[1] != '\0' ? Utf8 : Utf16LittleEndian;
  return head[0] == '\0' && head[1] == '<' ? Utf16BigEndian : None;
}

bool DeclaresUtf8(std::string_view lines) {
  constexpr std::string_view kCharset = "charset=";
  for (size_t at = lines.find(kCharset); at != std::string_view::npos; at = lines.find(kCharset, at)) {
    at += kCharset.size();
    const std::string_view value = lines.substr(at);
    if (value.starts_with("UTF-8") || value.starts_with("\"UTF-8\"")) return true;
  }
  return lines.find("\xE2\x80") != std::string_view::npos;
}

// A file open at the end of its head.
struct Opened {
  std::unique_ptr<InputFile> File;
  std::string Head;
  EncodingSignature Signature = EncodingSignature::None;
};

// What follows the head is read in pieces that are not kept, and not without end: ten lines may be anything.
bool DeclaresUtf8BeyondHead(InputFile& file, FirstLines& lines, std::string& declared) {
  constexpr size_t kLongestDeclaration = 15;
  constexpr int kMostPieces = 16;
  std::vector<char> block(size_t{1} << 16);
  for (int piece = 0; piece < kMostPieces && !lines.Full(); ++piece) {
    // Enough of what came before to see a declaration that two pieces share.
    if (declared.size() > kLongestDeclaration) declared.erase(0, declared.size() - kLongestDeclaration);
    const Expected<size_t, FileError> got = file.Read(block);
    if (!got || *got == 0) return false;
    lines.Take({block.data(), *got}, declared);
    if (DeclaresUtf8(declared)) return true;
  }
  return false;
}

// The first ten lines nearly always end inside the head. Where they do not, a megabyte more is looked at, and
// the file is put back to where the head ends. A pipe cannot be put back, so its head has to do. Empty
// where the way back failed: what has been read on is lost.
std::optional<bool> DeclaresUtf8(InputFile& file, std::string_view head) {
  FirstLines lines(10, true);
  std::string declared;
  lines.Take(head, declared);
  if (DeclaresUtf8(declared)) return true;
  if (lines.Full() || file.SeekTo(head.size())) return false;
  const bool declares = DeclaresUtf8BeyondHead(file, lines, declared);
  if (file.SeekTo(head.size())) return std::nullopt;
  return declares;
}

Expected<std::string, FileError> ReadHead(InputFile& file, size_t most) {
  // A small file needs no more room than it has bytes, and one to find its end; pipes do not tell.
  const uint64_t size = file.Size();
  std::string head(size > 0 ? static_cast<size_t>(std::min<uint64_t>(most, size + 1)) : most, '\0');
  size_t filled = 0;
  while (filled < head.size()) {
    const Expected<size_t, FileError> got = file.Read(std::span(head).subspan(filled));
    if (!got) return got.Error();
    if (*got == 0) break;
    filled += *got;
  }
  head.resize(filled);
  return head;
}

Opened Refused(EncodingSignature why) {
  Opened opened;
  opened.Signature = why;
  return opened;
}

Opened Probe(std::unique_ptr<InputFile> file, const path& path, size_t headBytes, bool checkDeclaredCharset) {
  auto head = ReadHead(*file, headBytes);
  if (!head) {
    // The file is there, whatever the reason says.
    const bool denied = head.Error().Fault == FileFault::PermissionDenied;
    return Refused(denied ? EncodingSignature::PermissionDenied : EncodingSignature::CannotOpen);
  }
  Opened opened;
  opened.File = std::move(file);
  opened.Head = std::move(*head);
  const std::string name = PathToText(path);
  opened.Signature = SignatureOfHead(opened.Head, FileExtension(name, true));
  if (opened.Signature == EncodingSignature::None && checkDeclaredCharset && IsPlainTextExtension(name)) {
    const std::optional<bool> declares = DeclaresUtf8(*opened.File, opened.Head);
    if (!declares) return Refused(EncodingSignature::CannotOpen);
    if (*declares) opened.Signature = EncodingSignature::Utf8;
  }
  return opened;
}

Opened OpenAndProbe(FileSystem& files, const path& path, size_t headBytes, bool checkDeclaredCharset) {
  if (path.empty()) return Refused(EncodingSignature::NoPath);
  auto file = files.OpenForReading(path);
  if (!file) return Refused(SignatureOfFault(file.Error().Fault));
  return Probe(std::move(*file), path, headBytes, checkDeclaredCharset);
}

bool IsAnomalous(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 32 && byte != '\n' && byte != '\r' && byte != '\f' && byte != '\t' && byte != '\b';
}

// The share of control bytes, and the first of them; false where the scan ends early.
bool ScanAnomalies(std::string_view bytes, int32_t maxBytes, double threshold, TextFacts& facts) {
  int32_t count = 0;
  int32_t i = 0;
  for (const char c : bytes) {
    ++i;
    if (IsAnomalous(c)) {
      ++count;
      if (facts.FirstAnomalousByte == 32) {
        facts.FirstAnomalousByte = static_cast<uint8_t>(c);
        facts.AnomalyPosition = i;
      }
    }
    if (i > maxBytes / 5.0) {
      facts.AnomalyPercent = count * 100.0 / i;
      if (facts.AnomalyPercent > threshold * 10) return false;
    }
  }
  facts.AnomalyPercent = count * 100.0 / static_cast<double>(bytes.size());
  return true;
}

void Scan(std::string_view bytes, int32_t maxBytes, double threshold, TextFacts& facts) {
  // Nearly every file has no control bytes at all, and counting none is what processors do fast.
  const bool anomalies = std::ranges::count_if(bytes, IsAnomalous) > 0;
  if (anomalies && !ScanAnomalies(bytes, maxBytes, threshold, facts)) {
    facts.Code = TextFileCode::NotText;
    return;
  }
  const bool sawCR = bytes.find('\r') != std::string_view::npos;
  const bool sawLF = bytes.find('\n') != std::string_view::npos;
  if (facts.AnomalyPercent > threshold)
    facts.Code = TextFileCode::NotText;
  else if (sawCR != sawLF)
    facts.Code = sawCR ? TextFileCode::MacText : TextFileCode::UnixText;
  else
    facts.Code = TextFileCode::WindowsText;
}

TextFacts Classify(const Opened& opened, int32_t maxBytes, double threshold) {
  TextFacts facts;
  if (opened.Signature != EncodingSignature::None) {
    facts.Code = CodeOf(opened.Signature);
    facts.IsUtf8 = opened.Signature == EncodingSignature::Utf8;
    return facts;
  }
  const auto most = static_cast<size_t>(std::max(maxBytes, 0));
  Scan(std::string_view(opened.Head).substr(0, most), maxBytes, threshold, facts);
  return facts;
}

OpenedText Classified(Opened opened, double threshold) {
  OpenedText source;
  source.Facts = Classify(opened, kScannedBytes, threshold);
  source.File = std::move(opened.File);
  source.Head = std::move(opened.Head);
  return source;
}

// What is scanned, and no less than the signatures take.
constexpr size_t HeadBytes(int32_t maxBytes) {
  constexpr int32_t kSignatureBytes = 5;
  return static_cast<size_t>(std::max(maxBytes, kSignatureBytes));
}

}  // namespace

OpenedText OpenTextSource(FileSystem& files, const path& path, double threshold) {
  return Classified(OpenAndProbe(files, path, HeadBytes(kScannedBytes), true), threshold);
}

OpenedText OpenTextSource(std::unique_ptr<InputFile> file, const path& name, double threshold) {
  return Classified(Probe(std::move(file), name, HeadBytes(kScannedBytes), true), threshold);
}

EncodingSignature ProbeTextEncoding(FileSystem& files, const path& path, bool checkDeclaredCharset) {
  return OpenAndProbe(files, path, HeadBytes(0), checkDeclaredCharset).Signature;
}

TextFileCode ClassifyTextFile(FileSystem& files, const path& path, int32_t maxBytes,
                              uint8_t& firstAnomalousByte, int32_t& anomalyPosition, double threshold,
                              double& anomalyPercent, bool& isUtf8, bool checkDeclaredCharset) {
  const Opened opened = OpenAndProbe(files, path, HeadBytes(maxBytes), checkDeclaredCharset);
  const TextFacts facts = Classify(opened, maxBytes, threshold);
  firstAnomalousByte = facts.FirstAnomalousByte;
  anomalyPosition = facts.AnomalyPosition;
  anomalyPercent = facts.AnomalyPercent;
  isUtf8 = facts.IsUtf8;
  return facts.Code;
}

Expected<std::string, FileError> ReadFirstLines(FileSystem& files, const path& path, int maxLines,
                                                bool skipBlank) {
  auto file = files.OpenForReading(path);
  if (!file) return file.Error();
  FirstLines lines(maxLines, skipBlank);
  std::string joined;
  std::vector<char> block(size_t{1} << 14);
  while (!lines.Full()) {
    const Expected<size_t, FileError> got = (*file)->Read(block);
    if (!got) return got.Error();
    if (*got == 0) break;
    lines.Take({block.data(), *got}, joined);
  }
  lines.Finish(joined);
  return joined;
}

bool IsPlainTextExtension(std::string_view path) {
  static constexpr std::array<std::string_view, 11> kExtensions = {
      "prn", "csv", "xhtml", "xhtm", "shtml", "shtm", "html", "htm", "xml", "log", "txt"};
  const std::string extension = FileExtension(path, true);
  return std::ranges::find(kExtensions, extension) != kExtensions.end();
}

std::string_view FileNamePart(std::string_view path) {
  const size_t separator = path.find_last_of("\\/");
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string FileExtension(std::string_view path, bool lowerCase) {
  const std::string_view name = FileNamePart(path);
  const size_t dot = name.rfind('.');
  if (dot == std::string_view::npos) return {};
  const std::string_view extension = name.substr(dot + 1);
  return lowerCase ? LowerText(extension) : std::string(extension);
}

}  // namespace korv
