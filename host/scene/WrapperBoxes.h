#pragma once

#include "host/scene/Box.h"
#include "host/scene/Scene.h"

/// The boxes around others.
namespace vantel::scene {

/// Boxes over each other, the first at the bottom.
class StackBox final : public Box {
public:
    StackBox(Boxes boxes, StackAlignment alignment)
        : m_boxes(std::move(boxes))
        , m_alignment(alignment) {}

    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    Boxes m_boxes;
    StackAlignment m_alignment;
};

class PaddedBox final : public Box {
public:
    PaddedBox(BoxPointer content, const Padding& padding)
        : m_content(std::move(content))
        , m_padding(padding) {}

    double firstBaseline(const QSizeF& size) const override;
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    QSizeF inner(const QSizeF& size) const;

    BoxPointer m_content;
    Padding m_padding;
};

class FramedBox final : public Box {
public:
    FramedBox(BoxPointer content, const Frame& frame)
        : m_content(std::move(content))
        , m_frame(frame) {}

    double firstBaseline(const QSizeF& size) const override;
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    QRectF inner(const QRectF& rectangle) const;

    BoxPointer m_content;
    Frame m_frame;
};

/// Content on a filled shape with round ends.
class CapsuleBox final : public Box {
public:
    CapsuleBox(BoxPointer content, Color color)
        : m_content(std::move(content))
        , m_color(color) {}

    double firstBaseline(const QSizeF& size) const override { return m_content->firstBaseline(size); }
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override { return m_content->size(proposal); }

private:
    BoxPointer m_content;
    Color m_color;
};

/// Content that is read out as one text of its own, and does something when it has an action.
class SpeakingBox final : public Box {
public:
    using Action = std::optional<std::variant<Url, IntentCall>>;

    SpeakingBox(BoxPointer content, QString label, Action action)
        : m_content(std::move(content))
        , m_label(std::move(label))
        , m_action(std::move(action)) {}

    double firstBaseline(const QSizeF& size) const override { return m_content->firstBaseline(size); }
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override { return m_content->size(proposal); }

private:
    BoxPointer m_content;
    QString m_label;
    Action m_action;
};

} // namespace vantel::scene
