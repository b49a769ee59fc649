#include "sources/read/docx.h"

#include <utility>
#include <vector>

#include "base/translation.h"
#include "platform/zip.h"
#include "sources/detect/classification.h"
#include "sources/questions.h"
#include "sources/read/docx_main_part.h"

namespace korv {

namespace fs = std::filesystem;

namespace {

constexpr const char* kMember = "word/document.xml";
constexpr size_t kBlock = size_t{1} << 18;

// Reads all of a file of at most `most` bytes.
Expected<std::string, FileError> ReadWhole(FileSystem& files, const fs::path& path, size_t most) {
  auto file = files.OpenForReading(path);
  if (!file) return file.Error();
  std::string bytes;
  std::vector<char> block(kBlock);
  while (bytes.size() < most) {
    const Expected<size_t, FileError> got = (*file)->Read(block);
    if (!got) return got.Error();
    if (*got == 0) break;
    bytes.append(block.data(), *got);
  }
  return bytes;
}

// Reads all of a member; one of more than `most` bytes counts as damaged.
Expected<std::string, ZipError> ReadMember(ZipMember member, size_t most) {
  std::string bytes;
  std::vector<char> block(kBlock);
  for (;;) {
    const Expected<size_t, ZipError> got = member.Read(block);
    if (!got) return got.Error();
    if (*got == 0) return bytes;
    if (bytes.size() + *got > most) return ZipError{ZipFault::Damaged, "Too large"};
    bytes.append(block.data(), *got);
  }
}

// Opens the document's main part: the member of the usual name, or else the one that the relationships name.
Expected<ZipMember, ZipError> OpenMainPart(ZipArchive& archive) {
  constexpr size_t kMostRelationshipBytes = size_t{1} << 20;
  Expected<ZipMember, ZipError> usual = archive.Open(kMember);
  if (usual || usual.Error().Fault != ZipFault::NoSuchMember) return usual;
  Expected<ZipMember, ZipError> member = archive.Open("_rels/.rels");
  if (!member) return usual;
  const Expected<std::string, ZipError> relationships =
      ReadMember(std::move(*member), kMostRelationshipBytes);
  if (!relationships) return relationships.Error();
  const std::optional<std::string> name = MainPartOf(*relationships);
  return name ? archive.Open(*name) : std::move(usual);
}

bool AskWhetherLargeIsWanted(Messages& messages, const std::string& path) {
  return messages.Show({.Text = Fill(Tr("%1\nis rather large.  It may take awhile to scan.\n"
                                        "Do you wish to continue?"),
                                     {path}),
                        .Title = Tr("Big file"),
                        .Icon = Icon::Question,
                        .Buttons = Buttons::YesNo,
                        .DefaultAnswer = Answer::No,
                        .Question = questions::kLargeDocx}) == Answer::Yes;
}

void AdviseToSaveAsText(Messages& messages) {
  messages.Show({.Text = Tr("You could try saving it as a text file\n"
                            "and applying this program to that text file."),
                 .Title = Tr("Big file")});
}

void ReportRemoval(Messages& messages, std::string text) {
  messages.Show({.Text = std::move(text), .Title = Tr("Error"), .Icon = Icon::Exclamation});
}

void RemoveFile(FileSystem& files, Messages& messages, const fs::path& path) {
  const auto fault = files.Remove(path);
  if (fault && fault->Fault != FileFault::NotFound)
    ReportRemoval(messages, Fill(Tr("Error when attempting to delete %1"), {PathToText(path)}));
}

void RemoveFolder(FileSystem& files, Messages& messages, const fs::path& path) {
  const auto fault = files.Remove(path);
  if (fault && fault->Fault != FileFault::NotFound)
    ReportRemoval(messages,
                  Fill(Tr("%1 when attempting to delete folder %2"), {fault->Description, PathToText(path)}));
}

}  // namespace

DocxTempFolder::~DocxTempFolder() {
  Remove();
}

bool DocxTempFolder::Create(std::string_view productWord) {
  auto made = context_.Files.CreatePrivateTemporaryFolder();
  if (made) {
    private_ = std::move(*made);
    folder_ = private_ / PathFromText(productWord);
    if (!context_.Files.CreateFolder(folder_)) return true;
    folder_.clear();
    Remove();
  }
  return false;
}

fs::path DocxTempFolder::XmlPath() const {
  return folder_ / "word" / "document.xml";
}

void DocxTempFolder::Remove() {
  if (!folder_.empty()) {
    RemoveDocxTempFiles(context_.Files, context_.Messages, folder_);
    RemoveFolder(context_.Files, context_.Messages, folder_);
  }
  if (!private_.empty()) RemoveFolder(context_.Files, context_.Messages, private_);
  folder_.clear();
  private_.clear();
}

bool BeginsAsDocx(std::string_view head) {
  constexpr size_t kLeastBytes = 10;
  return head.size() >= kLeastBytes && head.starts_with("PK");
}

bool UnzipDocumentXml(FileSystem& files, std::unique_ptr<InputFile> archive, const fs::path& folder,
                      Yielder& yielder, DocxFault& fault) {
  fault = kDocxNotUnpacked;
  const auto failed = [&](const ZipError& error) {
    if (error.Fault == ZipFault::BadChecksum) fault = kDocxBadChecksum;
    return false;
  };
  Expected<ZipArchive, ZipError> opened = OpenZipArchive(std::move(archive));
  if (!opened) return false;
  Expected<ZipMember, ZipError> member = OpenMainPart(*opened);
  if (!member) return failed(member.Error());
  const auto whenStored = [&](bool stored) {
    if (!stored) fault = kDocxNotStored;
    return stored;
  };
  if (files.CreateFolder(folder / "word")) return whenStored(false);
  auto file = files.OpenForWriting(folder / "word" / "document.xml");
  if (!file) return whenStored(false);

  std::vector<char> block(kBlock);
  constexpr auto kMost = static_cast<size_t>(kMostDocxBytes) + 1;
  for (size_t written = 0; written < kMost;) {
    yielder.Yield();
    const size_t wanted = std::min(block.size(), kMost - written);
    const Expected<size_t, ZipError> got = member->Read(std::span(block).first(wanted));
    if (!got) return failed(got.Error());
    if (*got == 0) break;
    if ((*file)->Write({block.data(), *got})) return whenStored(false);
    written += *got;
  }
  return whenStored(!(*file)->Commit());
}

void RemoveDocxTempFiles(FileSystem& files, Messages& messages, const fs::path& folder) {
  RemoveFile(files, messages, folder / "word" / "document.xml");
  RemoveFolder(files, messages, folder / "word");
}

int32_t ExtractDocx(const DocxContext& context, const fs::path& path, std::unique_ptr<InputFile> archive,
                    std::string_view productWord, bool askIfLarge, DocxTempFolder& temp) {
  if (!temp.Create(productWord)) {
    if (askIfLarge)
      context.Messages.Show(
          {.Text = Tr("Cannot create temporary folder."), .Title = Tr("Error"), .Icon = Icon::Critical});
    return kDocxNoTemporaryFolder;
  }
  const auto refuse = [&](int32_t fault) {
    temp.Remove();
    return fault;
  };
  if (!archive) {
    auto opened = context.Files.OpenForReading(path);
    if (!opened) return refuse(kDocxNotUnpacked);
    archive = std::move(*opened);
  }
  DocxFault fault{};
  if (!UnzipDocumentXml(context.Files, std::move(archive), temp.Path(), context.Yielder, fault))
    return refuse(fault);
  const Expected<uint64_t, FileError> size = context.Files.FileSize(temp.XmlPath());
  if (!size) return refuse(kDocxNotStored);
  if (*size > static_cast<uint64_t>(kMostDocxBytes)) return refuse(kDocxTooLarge);
  if (*size > static_cast<uint64_t>(kLargeDocxBytes) && askIfLarge &&
      !AskWhetherLargeIsWanted(context.Messages, PathToText(path))) {
    AdviseToSaveAsText(context.Messages);
    return refuse(kDocxDeclined);
  }
  return static_cast<int32_t>(*size);
}

Expected<int32_t, DocxFault> ReadDocx(const DocxContext& context, const fs::path& path,
                                      std::unique_ptr<InputFile> archive, std::string_view productWord,
                                      bool askIfLarge, std::string& text,
                                      const std::function<void(const std::string&)>& progress) {
  text.clear();
  std::string xml;
  {
    DocxTempFolder temp(context);
    const int32_t size = ExtractDocx(context, path, std::move(archive), productWord, askIfLarge, temp);
    if (size < 0) return static_cast<DocxFault>(size);
    auto whole = ReadWhole(context.Files, temp.XmlPath(), static_cast<size_t>(kMostDocxBytes));
    if (!whole) return kDocxNotStored;
    xml = std::move(*whole);
  }
  text = DocxXmlToText(xml, context, progress);
  return static_cast<int32_t>(xml.size());
}

fs::path ExtractedTextPath(const fs::path& docxPath) {
  fs::path name = docxPath.filename();
  name += ".txt";
  return docxPath.parent_path() / "extracted_text" / name;
}

std::optional<FileError> WriteExtractedText(FileSystem& files, const fs::path& docxPath,
                                            std::string_view text) {
  const fs::path path = ExtractedTextPath(docxPath);
  if (auto fault = files.CreateFolder(path.parent_path())) return fault;
  auto file = files.OpenForWriting(path);
  if (!file) return file.Error();
  if (auto fault = (*file)->Write("\xEF\xBB\xBF")) return fault;
  if (auto fault = (*file)->Write(text)) return fault;
  return (*file)->Commit();
}

Message DocxRefusal(DocxFault fault, const std::string& path) {
  switch (fault) {
    case kDocxNoTemporaryFolder:
      return {
          .Text = Tr("Unable to create temporary folder."), .Title = Tr("Error"), .Icon = Icon::Exclamation};
    case kDocxBadChecksum:
      return {.Text = Fill(Tr("%1\nInvalid checksum found when processing"), {path}),
              .Title = Tr("Error"),
              .Icon = Icon::Exclamation};
    case kDocxTooLarge:
      return {.Text = Fill(Tr("%1\nis too large (more than 20 Mb) to be scanned directly.\n\n"
                              "You might be able to save it as a text file\n"
                              "and apply this program to that file."),
                           {path}),
              .Title = Tr("File too big"),
              .Icon = Icon::Information};
    case kDocxNotUnpacked:
      return {.Text = Fill(Tr("%1\nis not a readable .docx file."), {path}),
              .Title = Tr("Error"),
              .Icon = Icon::Exclamation};
    case kDocxNotStored:
      return {.Text = Fill(Tr("%1\ncould not be unpacked: no temporary file can be written."), {path}),
              .Title = Tr("Error"),
              .Icon = Icon::Exclamation};
    default:
      return {};
  }
}

Message DocxFolderRefusal(DocxFault fault, const std::string& path) {
  const char* pattern = nullptr;
  switch (fault) {
    case kDocxNoTemporaryFolder:
      pattern = Tr("Unable to create temporary folder when processing %1");
      break;
    case kDocxBadChecksum:
      pattern = Tr("Invalid checksum found when processing %1");
      break;
    case kDocxTooLarge:
      pattern = Tr("File too big when processing %1");
      break;
    case kDocxNotUnpacked:
      pattern = Tr("Not a readable .docx file when processing %1");
      break;
    case kDocxNotStored:
      pattern = Tr("No temporary file can be written when processing %1");
      break;
    default:
      return {};
  }
  return {.Text = Fill(pattern, {FileNamePart(path)}), .Title = Tr("Error"), .Icon = Icon::Exclamation};
}

std::string_view DocxSkipReason(DocxFault fault) {
  switch (fault) {
    case kDocxBadChecksum:
      return TrLater("has an invalid checksum");
    case kDocxTooLarge:
    case kDocxDeclined:
      return TrLater("is too large");
    case kDocxNoTemporaryFolder:
    case kDocxNotStored:
      return TrLater("could not be unpacked (no temporary file can be written)");
    default:
      return TrLater("is not a readable .docx file");
  }
}

}  // namespace korv
