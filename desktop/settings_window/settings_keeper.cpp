#include "desktop/settings_window/settings_keeper.h"

#include <utility>

#include "app/settings/schema.h"
#include "base/translation.h"
#include "desktop/questions.h"

namespace korv {

bool SettingsKeeper::WouldBeMissed(const Settings& settings) const {
  return kept_ && SettingsDiffer(*kept_, settings);
}

SettingsKeeper::Wish SettingsKeeper::Ask(Messages& messages) {
  if (std::exchange(asked_, true)) return Wish::Forget;
  switch (messages.Show({.Text = Tr("You have changed settings that would be forgotten.\n"
                                    "Do you wish to keep them for the next start?"),
                         .Title = Tr("Quit"),
                         .Icon = Icon::Question,
                         .Buttons = Buttons::YesNo,
                         .DefaultAnswer = Answer::No,
                         .Question = questions::kKeepSettings,
                         .ExtraButton = Tr("&Always"),
                         .YesButton = Tr("&This time"),
                         .NoButton = Tr("&Not now")})) {
    case Answer::Yes:
      return Wish::KeepNow;
    case Answer::Extra:
      return Wish::KeepAlways;
    default:
      return Wish::Forget;
  }
}

}  // namespace korv
