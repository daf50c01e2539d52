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

protected:
    ~IZoLabelArranger() = default;
};
