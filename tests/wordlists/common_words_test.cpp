#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "engine/patterns/word_filters.h"
#include "engine/text/unicode.h"
#include "sources/scan/line_scanner.h"
#include "tests/wordlists/list_world.h"
#include "wordlists/common_words.h"

namespace korv {
namespace {

std::string FileBytes(std::string_view name) {
  std::ifstream file(std::string(KORV_TEST_DATA "/../../wordlists/") + std::string(name), std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The lines below the comment head.
std::vector<std::string> Lines(std::string_view name) {
  std::istringstream text(FileBytes(name));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);)
    if (line.find("//") == std::string::npos) lines.push_back(line);
  return lines;
}

class WordCollector final : public WordSink {
 public:
  void TakeWord(std::string_view word) override { Words.push_back(LowerText(word)); }
  void ResetPhrases() override {}
  std::vector<std::string> Words;
};

struct Language {
  const char* Code;
  const char* Letters;  ///< Beside a to z.
  const char* Prose;
};

const Language kLanguages[] = {
    {"en", "",
     "When the last ferry had left the harbour, Marta closed the little ticket office and walked home along "
     "the sea wall. She had done this every evening for eleven years, and she knew each stone of the path. "
     "The wind came from the west and smelled of salt and tar. Somebody had painted the old benches green, "
     "which she did not like at all, because the paint would come off on her coat. At the corner by the "
     "bakery a boy was waiting with a letter in his hand. He said that it was for her and that he had been "
     "told to give it to nobody else. She thanked him, put it into her bag and did not open it until she was "
     "sitting at her own table with a cup of tea."},
    {"de", "äöüß",
     "Als der letzte Zug abgefahren war, schloss der Bahnhofsvorsteher die Tür zum Wartesaal und ging noch "
     "einmal über den Bahnsteig. Er hatte das seit mehr als zwanzig Jahren jeden Abend getan, und doch "
     "gefiel ihm die Stille immer wieder. In der Ferne bellte ein Hund, sonst war nichts zu hören. Auf der "
     "Bank neben der Uhr lag ein roter Schal, den wohl jemand vergessen hatte. Er nahm ihn mit, weil es in "
     "der Nacht regnen sollte, und hängte ihn in seinem Büro an den Haken. Am nächsten Morgen würde sich "
     "bestimmt jemand melden. Wenn nicht, dann konnte er ihn seiner Schwester schenken, die so etwas gern "
     "trug."},
    {"es", "áéíñóúü",
     "Cuando salió el último autobús, la plaza se quedó en silencio y solo se oía el agua de la fuente. "
     "Don Julio cerró la farmacia, como había hecho todas las noches desde que murió su padre, y se sentó un "
     "rato en el banco que está junto a la iglesia. Le gustaba mirar las ventanas encendidas y adivinar lo "
     "que estaban cenando los vecinos. Aquella noche vio algo que no había visto nunca: una mujer con un "
     "paraguas amarillo que caminaba muy despacio, aunque no llovía. Cuando pasó a su lado, ella le sonrió y "
     "le preguntó si sabía dónde vivía el maestro."},
    {"pt", "áâãàçéêíóôõú",
     "Quando o último barco chegou ao cais, já não havia ninguém à espera. O velho pescador prendeu a corda, "
     "apagou a lanterna e ficou algum tempo sentado na borda, porque gostava de ouvir o rio àquela hora. "
     "Tinha sido um dia longo e não tinha apanhado quase nada, mas isso não o preocupava. A filha dizia que "
     "ele devia descansar mais, e talvez tivesse razão. Mesmo assim, no dia seguinte, antes de o sol nascer, "
     "ele estaria outra vez ali com a mesma rede e com a mesma paciência. Depois levantou-se e foi para casa "
     "pela rua que sobe até à igreja."},
    {"it", "àèéìíòóù",
     "Quando l'ultimo treno fu partito, la stazione rimase vuota e si sentiva soltanto il ronzio delle "
     "lampade. Il vecchio Carlo chiuse la biglietteria, come faceva ogni sera da quando era tornato al "
     "paese, "
     "e si mise a camminare lungo i binari. Non aveva fretta, perché a casa non c'era nessuno che lo "
     "aspettasse. Sul muro vide un gatto grigio che lo guardava e che poi lo seguì fino alla strada. Gli "
     "disse che non aveva niente da mangiare, ma il gatto non sembrava crederci. Alla fine divisero quello "
     "che era rimasto del pane e un po' di formaggio, seduti sui gradini della chiesa."},
    {"fr", "àâæçéèêëîïôœùûüÿ",
     "Quand le dernier client fut parti, Jeanne baissa le rideau de fer et compta les pièces qui étaient "
     "restées dans le tiroir. Elle faisait cela tous les soirs depuis que son oncle lui avait laissé la "
     "librairie, et elle n'y prenait plus garde. Ce soir-là, pourtant, il y avait une enveloppe sous la "
     "caisse. Son nom était écrit dessus, d'une main qu'elle ne connaissait pas. Elle l'ouvrit avec un "
     "couteau, lut la première page, puis la seconde, et s'assit sur les marches de l'escalier. Dehors, la "
     "pluie tombait sur les toits et sur les quais, et personne ne passait."},
};

constexpr const char* kAll = "cwds_en_de_es_pt_it_fr.txt";

TEST(CommonWordsFiles, AreSortedByCharacterCodeWithoutDoubles) {
  for (const CommonWordsLanguage& language : kCommonWordsLanguages) {
    if (language.File.empty()) continue;
    const std::vector<std::string> lines = Lines(language.File);
    EXPECT_TRUE(std::is_sorted(lines.begin(), lines.end())) << language.File;
    EXPECT_EQ(std::set<std::string>(lines.begin(), lines.end()).size(), lines.size()) << language.File;
  }
}

TEST(CommonWordsFiles, HoldTheLettersOfTheirLanguageAlone) {
  for (const Language& language : kLanguages) {
    const std::vector<std::string> lines = Lines(FindCommonWordsLanguage(language.Code)->File);
    EXPECT_GE(lines.size(), 200u) << language.Code;
    EXPECT_LE(lines.size(), 400u) << language.Code;
    const std::string letters = std::string("abcdefghijklmnopqrstuvwxyz'") + language.Letters;
    for (const std::string& word : lines) {
      EXPECT_EQ(ToNfc(word), word);
      size_t count = 0;
      for (size_t at = 0; at < word.size();) {
        const size_t begin = at;
        NextCharacter(word, at);
        EXPECT_NE(letters.find(word.substr(begin, at - begin)), std::string::npos) << word;
        if (word[begin] != '\'') ++count;
      }
      EXPECT_GE(count, 1u) << word;
      EXPECT_NE(word.front(), '\'') << word;
      EXPECT_NE(word.back(), '\'') << word;
    }
  }
}

TEST(CommonWordsFiles, TheSixLanguagesTogetherAreTheirUnion) {
  std::set<std::string> together;
  for (const Language& language : kLanguages)
    for (const std::string& word : Lines(FindCommonWordsLanguage(language.Code)->File)) together.insert(word);
  const std::vector<std::string> all = Lines(kAll);
  EXPECT_EQ(std::vector<std::string>(together.begin(), together.end()), all);
}

TEST(CommonWordsFiles, AreReadAsUtf8WithoutAQuestion) {
  for (const CommonWordsLanguage& language : kCommonWordsLanguages) {
    if (language.File.empty()) continue;
    const std::string bytes = FileBytes(language.File);
    EXPECT_TRUE(bytes.starts_with("\xEF\xBB\xBF//")) << "a signature, then the comment that says what it is";
    ListWorld world;
    world.Rules.AllowApostrophes = true;
    EXPECT_EQ(world.Read(bytes).Words, Lines(language.File)) << language.File;
    EXPECT_TRUE(world.Messages.Shown.empty()) << language.File;
  }
}

TEST(CommonWordsFiles, HoldHalfOfTheWordsOfOrdinaryProse) {
  for (const Language& language : kLanguages) {
    for (const bool apostrophes : {false, true}) {
      ListWorld world;
      world.Rules.AllowApostrophes = apostrophes;
      WordFilterSpec entries;
      entries.FileWordsToIgnore = world.Read(FileBytes(FindCommonWordsLanguage(language.Code)->File)).Words;
      const WordFilters lists(entries);
      WordRules rules = world.Rules;
      SetAllowedExtraChars(rules);
      SetAllowedExtraChars2(rules);
      WordCollector collector;
      LineScanner<WordSink> scanner(rules, CommentMarkers{}, collector);
      scanner.ScanLine(language.Prose);
      const auto common = std::count_if(collector.Words.begin(), collector.Words.end(),
                                        [&](const std::string& word) { return lists.IsWordToIgnore(word); });
      const double percent =
          100.0 * static_cast<double>(common) / static_cast<double>(collector.Words.size());
      EXPECT_GE(collector.Words.size(), 90u) << language.Code;
      EXPECT_GE(percent, 35.0) << language.Code;
      EXPECT_LE(percent, 65.0) << language.Code;
      RecordProperty(language.Code, std::to_string(percent));
    }
  }
}

}  // namespace
}  // namespace korv
