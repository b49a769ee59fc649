#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/expected.h"
#include "base/yielder.h"
#include "platform/files.h"
#include "platform/messages.h"

namespace korv {

/// Sizes of the unpacked word/document.xml, in bytes: above the first the user is asked, above the second
/// the document is refused.
inline constexpr int32_t kLargeDocxBytes = 10485760;
inline constexpr int32_t kMostDocxBytes = 20971520;

/// The folder of a document's temporary files.
inline constexpr std::string_view kProductWord = "Korv";

/// The values of ExtractDocx that are no size.
enum DocxFault : int32_t {
  kDocxNoTemporaryFolder = -1,
  kDocxBadChecksum = -3,
  kDocxTooLarge = -4,
  kDocxDeclined = -5,     ///< The user did not want a large file scanned.
  kDocxNotUnpacked = -6,  ///< No archive, no such member, damaged, encrypted, an unknown method.
  kDocxNotStored = -7     ///< The document may be good, but its temporary file could not be written or read.
};

struct DocxContext {
  FileSystem& Files;
  korv::Messages& Messages;
  korv::Yielder& Yielder;
};

/// The temporary folder of one document: a folder of the product's name inside a fresh private one. Remove()
/// and the destructor remove it with its contents; a failure to do so is shown once and is no failure of the
/// reading.
class DocxTempFolder {
 public:
  explicit DocxTempFolder(DocxContext context) : context_(context) {}
  ~DocxTempFolder();
  DocxTempFolder(const DocxTempFolder&) = delete;
  DocxTempFolder& operator=(const DocxTempFolder&) = delete;

  /// False when it cannot be created.
  bool Create(std::string_view productWord);
  const std::filesystem::path& Path() const { return folder_; }
  std::filesystem::path XmlPath() const;
  /// RemoveDocxTempFiles, and then the folder itself.
  void Remove();

 private:
  DocxContext context_;
  std::filesystem::path private_;
  std::filesystem::path folder_;
};

inline constexpr std::string_view kDocxExtension = "docx";
/// Whether a file of that extension begins as an archive does: there are at least 10 bytes, "PK" first.
bool BeginsAsDocx(std::string_view head);

/// Writes the member "word/document.xml" of the archive, or where it has none the one that its relationships
/// name as the document, as word/document.xml below `folder`, and nothing else. Writes at most
/// kMostDocxBytes + 1 bytes, even if the archive claims to hold fewer. False on failure: `fault` is then
/// kDocxBadChecksum, kDocxNotUnpacked or kDocxNotStored, and a part of the file may have been written.
bool UnzipDocumentXml(FileSystem& files, std::unique_ptr<InputFile> archive,
                      const std::filesystem::path& folder, Yielder& yielder, DocxFault& fault);

/// Deletes document.xml and the folder "word" below `folder`, where they exist; shows failures.
void RemoveDocxTempFiles(FileSystem& files, Messages& messages, const std::filesystem::path& folder);

/// Unpacks the document's main part into `temp`. The size of document.xml in bytes, or a DocxFault with
/// nothing left behind. `archive` is the open file, at any position; null opens `path`. Without `askIfLarge`
/// no question is asked and no message shown: a large document is taken.
int32_t ExtractDocx(const DocxContext& context, const std::filesystem::path& path,
                    std::unique_ptr<InputFile> archive, std::string_view productWord, bool askIfLarge,
                    DocxTempFolder& temp);

/// The text of a document's runs, UTF-8, with CR LF after every paragraph and break. Entities are decoded;
/// what the document repeats for older programs, and what was moved away, is passed over. Linear in `xml`. A
/// request to stop asks whether to; Yes ends the extraction with what there is. `progress`, where given, gets
/// a bar of characters while a document of more than 1,000,000 bytes is worked on.
std::string DocxXmlToText(std::string_view xml, const DocxContext& context,
                          const std::function<void(const std::string&)>& progress = nullptr);
/// The bar: "[-----     >...": "[", a "-" for each fortieth done, ">", blanks, "]".
std::string DocxProgressBar(size_t done, size_t total);

/// All of the above: the text of a .docx, and the size of its unpacked XML in bytes. Nothing is left in the
/// temporary folder.
Expected<int32_t, DocxFault> ReadDocx(const DocxContext& context, const std::filesystem::path& path,
                                      std::unique_ptr<InputFile> archive, std::string_view productWord,
                                      bool askIfLarge, std::string& text,
                                      const std::function<void(const std::string&)>& progress = nullptr);

/// Where the extracted text is kept: "extracted_text", the file's name and ".txt" beside the file.
std::filesystem::path ExtractedTextPath(const std::filesystem::path& docxPath);
/// Writes it there, UTF-8 with a signature, making the folder. An empty result on success.
std::optional<FileError> WriteExtractedText(FileSystem& files, const std::filesystem::path& docxPath,
                                            std::string_view text);

/// The message of a single-file run for a fault; its text is empty for kDocxDeclined, which has been told.
Message DocxRefusal(DocxFault fault, const std::string& path);
/// The box of a folder run: "... when processing " and the file's name. Empty as above.
Message DocxFolderRefusal(DocxFault fault, const std::string& path);
/// Why a folder run skips it: "has an invalid checksum", "is too large", "is not a readable .docx file".
/// In English, as SkipReason().
std::string_view DocxSkipReason(DocxFault fault);

}  // namespace korv
