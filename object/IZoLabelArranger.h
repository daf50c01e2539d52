#pragma once

// A layer that decides which of its objects' name labels are drawn. Objects
// tell it when their labels may have moved, and ask it before drawing one.
class IZoLabelArranger
{
public:
    // Whether the layer decides at all; while not, every label is drawn.
    virtual bool IsArrangingLabels() const = 0;
    // The labels must be decided again before the next one is drawn.
    virtual void InvalidateLabels() = 0;
    // Decides anew if needed; each object learns whether its label is drawn.
    virtual void ArrangeLabels() = 0;
    // Whether the layer draws its objects' labels itself, above all of its
    // objects: the objects' items then leave their own labels out.
    virtual bool DrawsLabelsAbove() const = 0;
    // A label drawn by the layer looks different: paint the labels again.
    virtual void RepaintLabels() = 0;
    // An object of the layer took z value z: the labels stay above it.
    virtual void NoteObjectZValue(int z) = 0;

protected:
    ~IZoLabelArranger() = default;
};
