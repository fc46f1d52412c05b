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

/// A box around one other, as large as that one unless it says otherwise.
class WrapperBox : public Box {
public:
    explicit WrapperBox(BoxPointer content)
        : m_content(std::move(content)) {}

    double firstBaseline(const QSizeF& size) const override { return m_content->firstBaseline(size); }

protected:
    QSizeF measured(const Proposal& proposal) const override { return m_content->size(proposal); }
    const Box& content() const { return *m_content; }

private:
    BoxPointer m_content;
};

class PaddedBox final : public WrapperBox {
public:
    PaddedBox(BoxPointer content, const Padding& padding)
        : WrapperBox(std::move(content))
        , m_padding(padding) {}

    double firstBaseline(const QSizeF& size) const override;
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    QSizeF inner(const QSizeF& size) const;

    Padding m_padding;
};

class FramedBox final : public WrapperBox {
public:
    FramedBox(BoxPointer content, const Frame& frame)
        : WrapperBox(std::move(content))
        , m_frame(frame) {}

    double firstBaseline(const QSizeF& size) const override;
    void place(const QRectF& rectangle, Placer& placer) const override;

protected:
    QSizeF measured(const Proposal& proposal) const override;

private:
    QRectF inner(const QRectF& rectangle) const;

    Frame m_frame;
};

/// Content on a filled shape with round ends.
class CapsuleBox final : public WrapperBox {
public:
    CapsuleBox(BoxPointer content, Color color)
        : WrapperBox(std::move(content))
        , m_color(color) {}

    void place(const QRectF& rectangle, Placer& placer) const override;

private:
    Color m_color;
};

/// Content that is read out as one text of its own, and does something when it has an action.
class SpeakingBox final : public WrapperBox {
public:
    using Action = std::optional<std::variant<Url, IntentCall>>;

    SpeakingBox(BoxPointer content, QString label, Action action)
        : WrapperBox(std::move(content))
        , m_label(std::move(label))
        , m_action(std::move(action)) {}

    void place(const QRectF& rectangle, Placer& placer) const override;

private:
    QString m_label;
    Action m_action;
};

} // namespace vantel::scene
