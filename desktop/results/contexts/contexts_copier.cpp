#include "desktop/results/contexts/contexts_copier.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <utility>

#include "app/contexts/context_copy.h"
#include "desktop/toolkit/text.h"

namespace korv {

void ContextsCopier::Copy(std::shared_ptr<const ContextList> list, std::vector<Place> places, size_t around) {
  job_.Start([reading = reading_, list = std::move(list), places = std::move(places),
              around](NewestJob::Turn& turn) {
    reading->Do(list->SharedRun(), turn.Yielder(), [&](PlaceLocator& locator) {
      const ContextCopy copy = CopyContexts(*list, places, around, locator, turn.Yielder());
      turn.Tell([copy] {
        auto* contents = new QMimeData;
        contents->setText(ToQt(copy.Text));
        contents->setHtml(ToQt(copy.Html));
        QGuiApplication::clipboard()->setMimeData(contents);
      });
    });
  });
}

void ContextsCopier::Forget() {
  job_.Start([reading = reading_](NewestJob::Turn&) { reading->Forget(); });
}

}  // namespace korv
