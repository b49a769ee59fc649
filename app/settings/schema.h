#pragma once

#include <bitset>
#include <span>
#include <string_view>
#include <vector>

#include "app/settings/setting_row.h"

namespace korv {

/// The settings, one row each. Settings files, "Restore defaults" and "Reinitialize", the options of
/// korv-count with their help and manual page, and the controls of the windows all follow from these rows.
std::span<const SettingRow> Schema();

/// The options that take the words of several checkboxes.
std::span<const ListOption> ListOptions();

/// Whether the windows show the setting in a control of its own.
bool HasControl(const SettingRow& row);

/// The row of a name that exists.
const SettingRow& RowOf(std::string_view name);

// ---- Sets of settings

inline constexpr size_t kMostSettings = 128;
/// By the place of a row in Schema().
using SettingSet = std::bitset<kMostSettings>;

size_t IndexOf(const SettingRow& row);
SettingSet SetOf(const SettingRow& row);
/// Whether the setting of that name, which exists, is in `set`.
bool Has(const SettingSet& set, std::string_view name);
/// Those that are reset by it: with Reinitialize, those of RestoreDefaults too.
SettingSet SettingsResetBy(ResetBy button);
/// Those that say what is counted just now or where its list goes.
SettingSet SettingsOfTheMoment();

/// In which settings the two differ.
SettingSet DifferencesOf(const Settings& one, const Settings& other);
bool SameValue(const SettingRow& row, const Settings& one, const Settings& other);
void CopyValue(const SettingRow& row, const Settings& from, Settings& to);
void CopyValues(const SettingSet& which, const Settings& from, Settings& to);

// ---- Settings

/// Those of a window before anything was restored.
Settings SettingsAtStart();

/// What "Restore defaults" does.
void SetDefaultValues(Settings& settings);

/// Sets all that a way of reading sets, and Settings::Reading itself.
void ApplyReading(Reading reading, Settings& settings);
/// The defaults of settings that have no place in a file: those of the way of reading.
Settings DefaultsUnder(Reading reading);

/// Whether two settings differ in what a user would miss after a restart.
bool SettingsDiffer(const Settings& one, const Settings& other);

// ---- Settings files

/// One value of a settings file.
struct SavedPlace {
  const SettingRow* Row;
  int Choice;  ///< Of a choice with a place for each choice, which one; else kNoChoice.
};
/// In the order of the file.
std::vector<SavedPlace> SavedPlaces(std::span<const SettingRow> rows);

}  // namespace korv
