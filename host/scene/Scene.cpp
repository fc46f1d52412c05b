#include "host/scene/Scene.h"

#include "host/scene/BoxMaker.h"
#include "host/scene/Placer.h"

namespace vantel::scene {

Scene laidOut(const WidgetView& view, const SceneContext& context) {
    ShapedTexts texts;
    return laidOut(view, context, texts);
}

Scene laidOut(const WidgetView& view, const SceneContext& context, ShapedTexts& texts) {
    Scene scene;
    scene.size = cardSize(view.family, 1);
    scene.background = view.content.background;
    const BoxPointer box = makeOutermostBox(view.content.content, {context, texts, scene.countdowns});
    const QRectF room =
        QRectF({0, 0}, scene.size).adjusted(contentMargin, contentMargin, -contentMargin, -contentMargin);
    const QSizeF size = box->size({room.width(), room.height()});
    const QPointF corner = room.center() - QPointF(size.width(), size.height()) / 2;
    Placer placer(scene, context.direction);
    box->place({corner, size}, placer);
    texts.endLayout();
    return scene;
}

} // namespace vantel::scene
