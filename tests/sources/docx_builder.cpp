#include "tests/sources/docx_builder.h"

#include <zip.h>

#include <cstdint>
#include <stdexcept>

namespace korv {

namespace {

constexpr const char* kMember = "word/document.xml";

void Require(bool fine) {
  if (!fine) throw std::runtime_error("the test archive could not be built");
}

std::string Build(const std::vector<DocxPart>& parts, const char* password) {
  zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  Require(target != nullptr);
  zip_source_keep(target);
  zip_t* archive = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
  Require(archive != nullptr);
  for (const DocxPart& part : parts) {
    zip_source_t* content = zip_source_buffer(archive, part.Content.data(), part.Content.size(), 0);
    const zip_int64_t index = zip_file_add(archive, part.Name.c_str(), content, ZIP_FL_ENC_UTF_8);
    Require(index >= 0);
    const auto at = static_cast<zip_uint64_t>(index);
    Require(zip_set_file_compression(archive, at, part.Deflated ? ZIP_CM_DEFLATE : ZIP_CM_STORE, 1) == 0);
    if (password) Require(zip_file_set_encryption(archive, at, ZIP_EM_TRAD_PKWARE, password) == 0);
  }
  Require(zip_close(archive) == 0);
  Require(zip_source_open(target) == 0);
  std::string bytes;
  char buffer[4096];
  for (zip_int64_t got; (got = zip_source_read(target, buffer, sizeof buffer)) > 0;)
    bytes.append(buffer, static_cast<size_t>(got));
  zip_source_close(target);
  zip_source_free(target);
  return bytes;
}

std::vector<DocxPart> PartsAround(const std::string& xml) {
  return {{"[Content_Types].xml", "<Types/>"}, {kMember, xml}, {"word/styles.xml", "<w:styles/>"}};
}

// Where the headers of the member begin: they hold its name at the given distance.
std::vector<size_t> HeadersOf(const std::string& archive, std::string_view signature, size_t nameOffset) {
  std::vector<size_t> headers;
  for (size_t at = archive.find(signature); at != std::string::npos; at = archive.find(signature, at + 1))
    if (archive.compare(at + nameOffset, std::string_view(kMember).size(), kMember) == 0)
      headers.push_back(at);
  return headers;
}

}  // namespace

std::string BuildArchive(const std::vector<DocxPart>& parts) {
  return Build(parts, nullptr);
}
std::string BuildDocx(const std::string& xml) {
  return Build(PartsAround(xml), nullptr);
}
std::string BuildEncryptedDocx(const std::string& xml) {
  return Build(PartsAround(xml), "secret");
}

std::string Paragraphs(const std::vector<std::string>& texts) {
  std::string xml = "<?xml version=\"1.0\"?><w:document><w:body>";
  for (const std::string& text : texts) xml += "<w:p><w:r><w:t>" + text + "</w:t></w:r></w:p>";
  return xml + "</w:body></w:document>";
}

void PatchHeaders(std::string& archive, size_t local, size_t central, size_t bytes, uint32_t value) {
  using namespace std::string_view_literals;
  const auto patch = [&](const std::vector<size_t>& headers, size_t offset) {
    Require(!headers.empty());
    for (const size_t header : headers)
      for (size_t k = 0; k < bytes; ++k)
        archive[header + offset + k] = static_cast<char>((value >> (8 * k)) & 0xFF);
  };
  patch(HeadersOf(archive, "PK\3\4"sv, 30), local);
  patch(HeadersOf(archive, "PK\1\2"sv, 46), central);
}

void PatchChecksum(std::string& archive, uint32_t crc) {
  PatchHeaders(archive, 14, 16, 4, crc);
}
void PatchSize(std::string& archive, uint32_t size) {
  PatchHeaders(archive, 22, 24, 4, size);
}
void PatchMethod(std::string& archive, uint16_t method) {
  PatchHeaders(archive, 8, 10, 2, method);
}

}  // namespace korv
