#include "sources/read/docx.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "sources/questions.h"
#include "tests/fakes/fake_files.h"
#include "tests/fakes/fake_messages.h"
#include "tests/fakes/native_paths.h"
#include "tests/sources/docx_builder.h"

namespace korv {
namespace {

/// What ReadDocx returned as a number: a size, or a fault.
int32_t Number(const Expected<int32_t, DocxFault>& read) {
  return read ? *read : int32_t{read.Error()};
}

class DocxTest : public testing::Test {
 protected:
  ~DocxTest() override { EXPECT_TRUE(files.TemporaryIsClean()); }

  int32_t Read(const std::string& path = "/in/x.docx") {
    return Number(ReadDocx(context, path, nullptr, "Korv", true, text));
  }
  int32_t ReadArchive(const std::string& archive) {
    files.Add("/in/x.docx", archive);
    return Read();
  }

  FakeFiles files;
  FakeMessages messages;
  NoYielder yielder;
  DocxContext context{files, messages, yielder};
  std::string text;
};

std::string XmlOfSize(size_t bytes) {
  std::string xml = Paragraphs({"the first words"});
  xml.append(bytes - xml.size(), ' ');
  return xml;
}

TEST_F(DocxTest, GivesTheTextAndTheSizeOfTheXml) {
  const std::string xml = Paragraphs({"some words", "more words"});
  EXPECT_EQ(ReadArchive(BuildDocx(xml)), static_cast<int32_t>(xml.size()));
  EXPECT_EQ(text, "some words\r\nmore words\r\n");
  EXPECT_TRUE(messages.Shown.empty());
}

TEST_F(DocxTest, ReadsStoredMembersToo) {
  EXPECT_GT(ReadArchive(BuildArchive({{"word/document.xml", Paragraphs({"stored"}), false}})), 0);
  EXPECT_EQ(text, "stored\r\n");
}

TEST_F(DocxTest, TakesAFileThatIsOpenAlready) {
  files.Add("/in/x.docx", BuildDocx(Paragraphs({"some words"})));
  auto file = files.OpenForReading("/in/x.docx");
  ASSERT_TRUE(file);
  char head[100];
  ASSERT_TRUE((*file)->Read(head));
  EXPECT_TRUE(ReadDocx(context, "/in/x.docx", std::move(*file), "Korv", true, text));
  EXPECT_EQ(text, "some words\r\n");
  EXPECT_EQ(files.Openings(), 2) << "the archive once, the unpacked part once";
}

TEST_F(DocxTest, AnEmptyMainPartIsADocumentWithoutText) {
  EXPECT_EQ(ReadArchive(BuildDocx("")), 0);
  EXPECT_EQ(text, "");
}

TEST_F(DocxTest, ABrokenChecksumIsTold) {
  std::string archive = BuildDocx(Paragraphs({"some words"}));
  PatchChecksum(archive, 0x12345678);
  EXPECT_EQ(ReadArchive(archive), kDocxBadChecksum);
  EXPECT_EQ(text, "");
}

TEST_F(DocxTest, ABrokenChecksumIsToldOfStoredMembersToo) {
  std::string archive = BuildArchive({{"word/document.xml", Paragraphs({"stored words"}), false}});
  archive[archive.find("stored words")] = 'S';
  EXPECT_EQ(ReadArchive(archive), kDocxBadChecksum);
}

TEST_F(DocxTest, WhatIsNoReadableDocumentIsNotUnpacked) {
  const std::string fine = BuildDocx(Paragraphs({"some words and more of them"}));
  std::string method = fine;
  PatchMethod(method, 97);
  std::string packed = fine;
  packed[packed.find("word/document.xml") + 30] = '\x55';
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"no archive", "PK, but this is just text after all"},
      {"no such member", BuildArchive({{"word/styles.xml", "<x/>"}})},
      {"another folder's member", BuildArchive({{"../word/document.xml", Paragraphs({"x"})},
                                                {"/word/document.xml", Paragraphs({"x"})},
                                                {"word/document.xml/../../x", Paragraphs({"x"})}})},
      {"encrypted", BuildEncryptedDocx(Paragraphs({"some words"}))},
      {"an unknown method", method},
      {"cut off after the first member", fine.substr(0, fine.size() / 2)},
      {"cut off in the directory", fine.substr(0, fine.size() - 10)},
  };
  for (const auto& [about, archive] : cases) {
    EXPECT_EQ(ReadArchive(archive), kDocxNotUnpacked) << about;
    EXPECT_TRUE(files.TemporaryIsClean()) << about;
  }
  EXPECT_LT(ReadArchive(packed), 0) << "damaged data";
}

std::string Relationships(const std::string& inside) {
  return "<?xml version=\"1.0\"?><!-- it's --><Relationships xmlns=\"x\">"
         "<Relationship Id=\"1\" Type=\"http://x/metadata/core-properties\" Target=\"docProps/core.xml\"/>" +
         inside + "</Relationships>";
}

std::string OfficeDocument(const std::string& target) {
  return Relationships("<Relationship Target=\"" + target +
                       "\" Type=\"http://schemas.openxmlformats.org/officeDocument/2006/relationships/"
                       "officeDocument\" Id=\"2\"/>");
}

TEST_F(DocxTest, TheMainPartMayHaveAnotherName) {
  const std::string xml = Paragraphs({"some words"});
  for (const std::string target : {"word/document2.xml", "/word/document2.xml", "./word/document2.xml",
                                   "word/x/../document2.xml", "word//document2.xml"}) {
    EXPECT_EQ(
        ReadArchive(BuildArchive({{"_rels/.rels", OfficeDocument(target)}, {"word/document2.xml", xml}})),
        static_cast<int32_t>(xml.size()))
        << target;
    EXPECT_EQ(text, "some words\r\n") << target;
  }
}

TEST_F(DocxTest, EitherDialectNamesTheMainPart) {
  for (const std::string inside :
       {"<Relationship Id='a' Type='http://purl.oclc.org/ooxml/officeDocument/relationships/officeDocument' "
        "Target='a&amp;b.xml'/>",
        "<p:Relationship\n Target = \"a&#38;b.xml\"\n Type = \"x/officeDocument\"></p:Relationship>",
        "<Relationship Type='x/officeDocument' Target='http://x/y' TargetMode='External'/>"
        "<Relationship Type='x/officeDocument' Target='a&amp;b.xml' TargetMode='Internal'/>"}) {
    EXPECT_GT(ReadArchive(BuildArchive(
                  {{"a&b.xml", Paragraphs({"some words"})}, {"_rels/.rels", Relationships(inside)}})),
              0)
        << inside;
    EXPECT_EQ(text, "some words\r\n") << inside;
  }
}

TEST_F(DocxTest, TheUsualNameGoesBeforeAnyOther) {
  EXPECT_GT(ReadArchive(BuildArchive({{"_rels/.rels", OfficeDocument("word/other.xml")},
                                      {"word/other.xml", Paragraphs({"other"})},
                                      {"word/document.xml", Paragraphs({"usual"})}})),
            0);
  EXPECT_EQ(text, "usual\r\n");
}

TEST_F(DocxTest, RelationshipsThatNameNoMemberAreOfNoUse) {
  const std::string part = Paragraphs({"x"});
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"empty", ""},
      {"no relationship of the type", Relationships("")},
      {"a type that only holds the word",
       Relationships("<Relationship Type='x/officeDocument/y' Target='a.xml'/>")},
      {"another element", Relationships("<Relation Type='x/officeDocument' Target='a.xml'/>")},
      {"no target", Relationships("<Relationship Type='x/officeDocument'/>")},
      {"no type", Relationships("<Relationship Target='a.xml'/>")},
      {"an empty target", OfficeDocument("")},
      {"the root", OfficeDocument("/")},
      {"a missing member", OfficeDocument("b.xml")},
      {"outside the archive", OfficeDocument("../a.xml")},
      {"outside the archive and in again", OfficeDocument("/word/../../a.xml")},
      {"cut off", OfficeDocument("a.xml").substr(0, 200)},
  };
  for (const auto& [about, relationships] : cases) {
    EXPECT_EQ(
        ReadArchive(BuildArchive({{"_rels/.rels", relationships}, {"a.xml", part}, {"../a.xml", part}})),
        kDocxNotUnpacked)
        << about;
    EXPECT_TRUE(messages.Shown.empty()) << about;
  }
}

TEST_F(DocxTest, LimitsHoldForAMainPartOfAnotherNameToo) {
  const auto archive = [](size_t bytes) {
    return BuildArchive({{"_rels/.rels", OfficeDocument("a.xml")}, {"a.xml", XmlOfSize(bytes)}});
  };
  EXPECT_EQ(ReadArchive(archive(25 << 20)), kDocxTooLarge);
  EXPECT_EQ(ReadArchive(archive(15 << 20)), kDocxDeclined);
  EXPECT_EQ(messages.Shown.size(), 2U);
}

TEST_F(DocxTest, RelationshipsBeyondAllMeasureAreNotRead) {
  std::string relationships = OfficeDocument("a.xml");
  relationships.insert(0, size_t{25} << 20, ' ');
  EXPECT_EQ(ReadArchive(BuildArchive({{"_rels/.rels", relationships}, {"a.xml", Paragraphs({"x"})}})),
            kDocxNotUnpacked);
}

TEST_F(DocxTest, ABrokenChecksumOfTheRelationshipsIsToldToo) {
  std::string archive =
      BuildArchive({{"_rels/.rels", OfficeDocument("a.xml"), false}, {"a.xml", Paragraphs({"x"})}});
  archive[archive.find("core-properties")] = 'C';
  EXPECT_EQ(ReadArchive(archive), kDocxBadChecksum);
}

TEST_F(DocxTest, AMissingFileOrAFolderIsNotUnpacked) {
  files.AddFolder("/in/folder.docx");
  EXPECT_EQ(Read("/in/missing.docx"), kDocxNotUnpacked);
  EXPECT_EQ(Read("/in/folder.docx"), kDocxNotUnpacked);
}

TEST_F(DocxTest, EveryTruncationIsRefusedOrRead) {
  const std::string fine = BuildDocx(Paragraphs({"some words"}));
  for (size_t length = 0; length < fine.size(); ++length)
    EXPECT_LT(ReadArchive(fine.substr(0, length)), 0) << length;
}

TEST_F(DocxTest, EveryChangedByteIsRefusedOrRead) {
  const std::string fine = BuildDocx(Paragraphs({"some words"}));
  for (size_t at = 0; at < fine.size(); ++at) {
    for (const int change : {0x01, 0x80, 0xFF}) {
      std::string changed = fine;
      changed[at] = static_cast<char>(changed[at] ^ change);
      if (ReadArchive(changed) >= 0) {
        EXPECT_EQ(text, "some words\r\n") << at;
      }
      ASSERT_TRUE(files.TemporaryIsClean());
    }
  }
}

TEST_F(DocxTest, LargeDocumentsAreAskedAbout) {
  files.Add("/in/x.docx", BuildDocx(XmlOfSize(15 << 20)));
  EXPECT_EQ(Read(), kDocxDeclined) << "No is the default";
  ASSERT_EQ(messages.Shown.size(), 2U);
  EXPECT_EQ(messages.Shown[0].Text,
            "/in/x.docx\nis rather large.  It may take awhile to scan.\nDo you wish to continue?");
  EXPECT_EQ(messages.Shown[0].Title, "Big file");
  EXPECT_EQ(messages.Shown[0].Buttons, Buttons::YesNo);
  EXPECT_EQ(messages.Shown[0].DefaultAnswer, Answer::No);
  EXPECT_EQ(messages.Shown[1].Text,
            "You could try saving it as a text file\nand applying this program to that text file.");
  EXPECT_EQ(messages.Shown[1].Title, "Big file");

  messages.Forget();
  messages.WillAnswer(questions::kLargeDocx, Answer::Yes);
  EXPECT_EQ(Read(), 15 << 20);
  EXPECT_EQ(text, "the first words\r\n");
  EXPECT_EQ(messages.Shown.size(), 1U);

  messages.Forget();
  EXPECT_EQ(Number(ReadDocx(context, "/in/x.docx", nullptr, "Korv", false, text)), 15 << 20);
  EXPECT_TRUE(messages.Shown.empty()) << "nothing is asked where it is not wanted";
}

TEST_F(DocxTest, ExactlyTheLimitsAreStillWithinThem) {
  EXPECT_EQ(ReadArchive(BuildDocx(XmlOfSize(kLargeDocxBytes))), kLargeDocxBytes);
  EXPECT_TRUE(messages.Shown.empty());
  messages.WillAnswer(questions::kLargeDocx, Answer::Yes);
  EXPECT_EQ(ReadArchive(BuildDocx(XmlOfSize(kLargeDocxBytes + 1))), kLargeDocxBytes + 1);
  EXPECT_EQ(messages.Shown.size(), 1U);
  EXPECT_EQ(ReadArchive(BuildDocx(XmlOfSize(kMostDocxBytes))), kMostDocxBytes);
  EXPECT_EQ(ReadArchive(BuildDocx(XmlOfSize(kMostDocxBytes + 1))), kDocxTooLarge);
}

TEST_F(DocxTest, ALargeDocumentIsRefusedHoweverSmallItsArchive) {
  const std::string archive = BuildDocx(XmlOfSize(25 << 20));
  EXPECT_LT(archive.size(), 1U << 20);
  EXPECT_EQ(ReadArchive(archive), kDocxTooLarge);
}

TEST_F(DocxTest, ALyingSizeDoesNotDefeatTheLimit) {
  std::string archive = BuildDocx(XmlOfSize(25 << 20));
  PatchSize(archive, 1000);
  EXPECT_EQ(ReadArchive(archive), kDocxTooLarge);
}

TEST_F(DocxTest, ALyingSizeOfASmallDocumentIsDamage) {
  for (const uint32_t size : {10U, 30U << 20}) {
    std::string archive = BuildDocx(Paragraphs({"some words"}));
    PatchSize(archive, size);
    EXPECT_EQ(ReadArchive(archive), kDocxNotUnpacked) << size;
  }
}

TEST_F(DocxTest, WithoutATemporaryFolderSaysSo) {
  files.Add("/in/x.docx", BuildDocx(Paragraphs({"some words"})));
  files.Refuse("/tmp", FileFault::NoSpace);
  EXPECT_EQ(Read(), kDocxNoTemporaryFolder);
  EXPECT_EQ(messages.Only().Text, "Cannot create temporary folder.");
  EXPECT_EQ(messages.Only().Title, "Error");
  EXPECT_EQ(messages.Only().Icon, Icon::Critical);

  messages.Forget();
  EXPECT_EQ(Number(ReadDocx(context, "/in/x.docx", nullptr, "Korv", false, text)), kDocxNoTemporaryFolder);
  EXPECT_TRUE(messages.Shown.empty()) << "nothing is shown where nobody is asked";
}

TEST_F(DocxTest, AnyFailingCallLeavesNothingBehindButWhatCannotBeRemoved) {
  const std::string archive = BuildDocx(Paragraphs({"some words"}));
  for (int call = 1;; ++call) {
    FakeFiles disk;
    FakeMessages shown;
    disk.Add("/in/x.docx", archive);
    disk.FailCall(call);
    const bool result =
        ReadDocx({disk, shown, yielder}, "/in/x.docx", nullptr, "Korv", true, text).HasValue();
    if (!disk.FailureHappened()) {
      EXPECT_TRUE(result);
      break;
    }
    const bool removalFailed =
        !shown.Shown.empty() && shown.Shown[0].Text.find("when attempting to delete") != std::string::npos;
    EXPECT_TRUE(removalFailed || !result) << "call " << call;
    EXPECT_TRUE(removalFailed || disk.TemporaryIsClean()) << "call " << call;
    EXPECT_EQ(disk.Content("/in/x.docx"), archive);
    ASSERT_LT(call, 100);
  }
}

TEST_F(DocxTest, AFullTemporaryDiskIsNotTheDocumentsFault) {
  files.Add("/in/x.docx", BuildDocx(Paragraphs({"some words"})));
  int notStored = 0;
  for (int call = 1;; ++call) {
    FakeFiles disk;
    FakeMessages shown;
    disk.FailCall(call, FileFault::NoSpace);
    const int32_t result =
        Number(ReadDocx({disk, shown, yielder}, "/in/x.docx", std::move(*files.OpenForReading("/in/x.docx")),
                        "Korv", true, text));
    if (!disk.FailureHappened()) break;
    EXPECT_TRUE(result >= 0 || result == kDocxNotStored || result == kDocxNoTemporaryFolder) << call;
    notStored += result == kDocxNotStored;
    ASSERT_LT(call, 100);
  }
  EXPECT_GE(notStored, 4) << "the folder, the file, its bytes, its name";
}

TEST_F(DocxTest, FailuresToCleanUpAreShown) {
  FakeFiles disk;
  disk.Add("/t/word/document.xml", "x");
  disk.Refuse("/t/word/document.xml", FileFault::PermissionDenied);
  RemoveDocxTempFiles(disk, messages, "/t");
  ASSERT_EQ(messages.Shown.size(), 2U);
  EXPECT_EQ(messages.Shown[0].Text, "Error when attempting to delete " + Below("/t", "word/document.xml"));
  EXPECT_EQ(messages.Shown[0].Title, "Error");
  EXPECT_EQ(messages.Shown[1].Text,
            "Input/output error when attempting to delete folder " + Below("/t", "word"));
  EXPECT_EQ(messages.Shown[1].Title, "Error");
}

TEST_F(DocxTest, TheExtractedTextLiesBesideTheDocument) {
  EXPECT_EQ(ExtractedTextPath("/in/x.docx"), "/in/extracted_text/x.docx.txt");
  files.AddFolder("/in");
  for (int k = 0; k < 2; ++k) {
    EXPECT_FALSE(WriteExtractedText(files, "/in/x.docx", "caf\xC3\xA9\r\n"));
    EXPECT_EQ(files.Content("/in/extracted_text/x.docx.txt"),
              "\xEF\xBB\xBF"
              "caf\xC3\xA9\r\n");
  }
}

TEST_F(DocxTest, AFailingExtractedTextIsReported) {
  for (int call = 1;; ++call) {
    FakeFiles disk;
    disk.AddFolder("/in");
    disk.FailCall(call, FileFault::NoSpace);
    const auto fault = WriteExtractedText(disk, "/in/x.docx", "words");
    if (!disk.FailureHappened()) break;
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->Fault, FileFault::NoSpace);
    EXPECT_FALSE(disk.Content("/in/extracted_text/x.docx.txt"));
  }
}

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(DocxTest, ReadsDocumentsOfOtherPrograms) {
  for (const std::string name : {"market", "plain", "empty", "letter"}) {
    const std::string base = KORV_TEST_DATA "/docx/" + name;
    EXPECT_GT(ReadArchive(ReadFile(base + ".docx")), 0) << name;
    EXPECT_EQ(text, ReadFile(base + ".txt")) << name;
  }
}

TEST_F(DocxTest, ReadsThemFromTheRealDisk) {
  const auto disk = MakeSystemFiles();
  EXPECT_TRUE(
      ReadDocx({*disk, messages, yielder}, KORV_TEST_DATA "/docx/plain.docx", nullptr, "Korv", true, text));
  EXPECT_EQ(text, ReadFile(KORV_TEST_DATA "/docx/plain.txt"));
  EXPECT_TRUE(messages.Shown.empty()) << "cleaning up failed";
}

TEST_F(DocxTest, HasTheWordsOfASingleFileRun) {
  struct Row {
    DocxFault Fault;
    const char* Title;
    const char* Text;
    korv::Icon Icon;
  };
  for (const Row& row :
       {Row{kDocxNoTemporaryFolder, "Error", "Unable to create temporary folder.", Icon::Exclamation},
        Row{kDocxBadChecksum, "Error", "/a.docx\nInvalid checksum found when processing", Icon::Exclamation},
        Row{kDocxTooLarge, "File too big",
            "/a.docx\nis too large (more than 20 Mb) to be scanned directly.\n\n"
            "You might be able to save it as a text file\nand apply this program to that file.",
            Icon::Information},
        Row{kDocxDeclined, "", "", Icon::None},
        Row{kDocxNotUnpacked, "Error", "/a.docx\nis not a readable .docx file.", Icon::Exclamation},
        Row{kDocxNotStored, "Error", "/a.docx\ncould not be unpacked: no temporary file can be written.",
            Icon::Exclamation}}) {
    const Message message = DocxRefusal(row.Fault, "/a.docx");
    EXPECT_EQ(message.Text, row.Text);
    EXPECT_EQ(message.Title, row.Title);
    EXPECT_EQ(message.Icon, row.Icon);
  }
}

TEST_F(DocxTest, HasTheWordsOfAFolderRun) {
  for (const DocxFault fault :
       {kDocxNoTemporaryFolder, kDocxBadChecksum, kDocxTooLarge, kDocxNotUnpacked, kDocxNotStored}) {
    const Message message = DocxFolderRefusal(fault, "/in/a.docx");
    EXPECT_TRUE(message.Text.ends_with(" when processing a.docx")) << message.Text;
    EXPECT_EQ(message.Title, "Error");
  }
  EXPECT_EQ(DocxFolderRefusal(kDocxDeclined, "/in/a.docx").Text, "");
  EXPECT_EQ(DocxSkipReason(kDocxBadChecksum), "has an invalid checksum");
  EXPECT_EQ(DocxSkipReason(kDocxTooLarge), "is too large");
  EXPECT_EQ(DocxSkipReason(kDocxDeclined), "is too large");
  EXPECT_EQ(DocxSkipReason(kDocxNotUnpacked), "is not a readable .docx file");
  for (const DocxFault fault : {kDocxNoTemporaryFolder, kDocxNotStored})
    EXPECT_EQ(DocxSkipReason(fault), "could not be unpacked (no temporary file can be written)");
}

}  // namespace
}  // namespace korv
