#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "app/settings/settings.h"

namespace korv {

// ---- The value of a setting: where it lies in Settings, and what it may be. A kind of value is saved,
// parsed and shown in one way.

/// A checkbox.
struct CheckValue {
  bool (*Get)(const Settings&);
  void (*Set)(Settings&, bool);
};

/// A number in a list of numbers.
struct NumberValue {
  int (*Get)(const Settings&);
  void (*Set)(Settings&, int);
  int Least;
  int Most;
  int Step = 1;  ///< Most - Least is a multiple of it.

  int Items() const { return (Most - Least) / Step + 1; }
  int IndexOf(int value) const { return (value - Least) / Step; }
  int AtIndex(int index) const { return Least + index * Step; }
};

struct Choice {
  const char* Word;               ///< On the command line; null where no option offers it.
  const char* Control = nullptr;  ///< Its option button; null where the setting's control is a list.
};

/// One of several choices, as an index among them; kNoChoice where none is made.
struct ChoiceValue {
  int (*Get)(const Settings&);
  void (*Set)(Settings&, int);
  std::span<const Choice> Choices;
};
inline constexpr int kNoChoice = -1;

/// A text box.
struct TextValue {
  const std::string& (*Get)(const Settings&);
  void (*Set)(Settings&, const std::string&);
  /// How a typed text is written; null for as typed.
  std::string (*Tidied)(std::string_view) = nullptr;
  /// Blanks around it mean nothing, as with a path.
  bool Trimmed = false;
};

/// A list of files, one of which may be selected.
struct FileListValue {
  std::vector<std::string> Settings::*Paths;
  int Settings::*Selected;
};

using SettingValue = std::variant<CheckValue, NumberValue, ChoiceValue, TextValue, FileListValue>;

// ---- The option of korv-count that sets it.

/// Groups of options, in the order of --help.
enum class OptionGroup {
  Settings,
  Phrases,
  WordLists,
  Words,
  Sources,
  Reading,
  Report,
  Contexts,
  Comparison,
  Output
};
/// The heading of its options there.
const char* TitleOf(OptionGroup group);

/// What an option does follows from the value of its setting: a checkbox becomes a flag, which turns its
/// default over; a number, a choice or a text is the option's value.
struct SettingOption {
  const char* Name = nullptr;       ///< "--min-words"; null for none.
  const char* ValueName = nullptr;  ///< What --help calls a text.
  OptionGroup Group = OptionGroup::Settings;
  /// One line, marked with TrLater(). "{default}", "{least}" and "{most}" stand for the setting's own.
  const char* Help = nullptr;
  /// A checkbox only: the option takes a list of words, and this one ticks the box. The option's other
  /// texts are in its ListOption.
  const char* Word = nullptr;
  /// A number only: the name of a checkbox, which the number ticks and the word "off" clears.
  const char* Switch = nullptr;
};

/// An option that takes the words of several checkboxes: it ticks those that it names and clears the others.
struct ListOption {
  const char* Name;
  OptionGroup Group;
  /// Marked with TrLater(). "{default}" stands for the words of the default, "{words}" for all of them.
  const char* Help;
};

// ---- A setting.

/// What sets a setting back to its default. "Reinitialize" also resets what "Restore defaults" does.
enum class ResetBy { Nothing, Reinitialize, RestoreDefaults };

/// All that the program knows of one setting. Its default is that of its field in Settings.
struct SettingRow {
  const char* Name;  ///< Unique, without "="; saved as it is, so never changed.
  SettingValue Value;
  ResetBy Reset = ResetBy::Nothing;
  /// The places of its value in a settings file, from 1; 0 for no place. A choice with as many places as
  /// choices has one for each. A setting without a place is saved in a line with its name.
  std::array<uint8_t, 4> Places{};
  const char* Control = nullptr;  ///< Object name; null where each choice has its own, or the value has none.
  SettingOption Option{};
  /// Where a window starts with another number than the default.
  std::optional<int> AtStart{};
  /// Says what is counted just now or where its list goes, which nobody misses after a restart.
  bool OfTheMoment = false;
};

// ---- Values by the way to their field: Check<&Settings::Words, &WordRules::AllowHyphens>().

template <auto... Path>
constexpr CheckValue Check() {
  return {[](const Settings& settings) { return (settings.*....*Path); },
          [](Settings& settings, bool value) { (settings.*....*Path) = value; }};
}

template <auto... Path>
constexpr NumberValue Number(int least, int most, int step = 1) {
  return {[](const Settings& settings) { return static_cast<int>((settings.*....*Path)); },
          [](Settings& settings, int value) {
            auto& field = (settings.*....*Path);
            field = static_cast<std::remove_reference_t<decltype(field)>>(value);
          },
          least, most, step};
}

/// Of an enumeration, or of numbers, from 0.
template <auto... Path>
constexpr ChoiceValue ChoiceOf(std::span<const Choice> choices) {
  const NumberValue number = Number<Path...>(0, 0);
  return {number.Get, number.Set, choices};
}

template <auto... Path>
constexpr TextValue Text(std::string (*tidied)(std::string_view) = nullptr, bool trimmed = false) {
  return {[](const Settings& settings) -> const std::string& { return (settings.*....*Path); },
          [](Settings& settings, const std::string& value) { (settings.*....*Path) = value; }, tidied,
          trimmed};
}

template <auto... Path>
constexpr TextValue TrimmedText(std::string (*tidied)(std::string_view) = nullptr) {
  return Text<Path...>(tidied, true);
}

}  // namespace korv
