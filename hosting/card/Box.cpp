#include "hosting/card/Box.h"

#include <algorithm>

namespace vantel::card {

Rect placed(const Box& box, const Rect& room, StackAlignment alignment) {
    const int width = std::min(box.idealWidth(), room.width);
    const int height = box.growsTall() ? room.height : std::min(box.height(width), room.height);
    const int x = alignment == StackAlignment::center ? (room.width - width) / 2 : 0;
    const int y = alignment == StackAlignment::topLeading ? 0 : (room.height - height) / 2;
    return {room.x + x, room.y + y, width, height};
}

} // namespace vantel::card
