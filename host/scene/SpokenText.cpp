#include "host/scene/SpokenText.h"

namespace vantel::scene {

SpokenText::SpokenText(QWidget* card)
    : QWidget(card) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
}

} // namespace vantel::scene
