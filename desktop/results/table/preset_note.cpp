#include "desktop/results/table/preset_note.h"

#include <QHBoxLayout>

#include "base/translation.h"
#include "desktop/toolkit/text.h"
#include "desktop/widgets/control_factory.h"
#include "desktop/widgets/eliding_label.h"
#include "desktop/widgets/layouts.h"

namespace korv {

PresetNote::PresetNote(QWidget* parent) : QWidget(parent) {
  lblPresetNote = Named(new ElidingLabel(this), "lblPresetNote");
  cmdCountShortWords = MakeButton("cmdCountShortWords", Tr("Count anew &with them"), this);
  auto* layout = Bare(new QHBoxLayout(this));
  layout->addWidget(lblPresetNote, 1);
  layout->addWidget(cmdCountShortWords, 0, Qt::AlignTop);
}

void PresetNote::Say(const std::string& text, bool offerShortWords) {
  lblPresetNote->setText(ToQt(text));
  cmdCountShortWords->setVisible(offerShortWords);
  setVisible(!text.empty());
}

}  // namespace korv
