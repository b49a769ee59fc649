#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korv {

/// One member of an archive to build.
struct DocxPart {
  std::string Name;
  std::string Content;
  bool Deflated = true;
};

/// A zip archive with these members.
std::string BuildArchive(const std::vector<DocxPart>& parts);
/// A document whose main part holds `xml`, between two other members.
std::string BuildDocx(const std::string& xml);
/// The same with the member under a password.
std::string BuildEncryptedDocx(const std::string& xml);

/// A main part of one paragraph per text.
std::string Paragraphs(const std::vector<std::string>& texts);

/// Changes the headers of the member "word/document.xml", the local and the central one. `local` is the
/// field's offset in a local header, `central` in a central one; the value is written little-endian.
void PatchHeaders(std::string& archive, size_t local, size_t central, size_t bytes, uint32_t value);
void PatchChecksum(std::string& archive, uint32_t crc);
void PatchSize(std::string& archive, uint32_t size);
void PatchMethod(std::string& archive, uint16_t method);

}  // namespace korv
