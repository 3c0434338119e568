// SPDX-FileCopyrightText: The Tavrin authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPaintDevice>

namespace tavrin {

/// A screen on which everything that is measured in points or in lengths of a text is larger or smaller. A
/// text is laid out for it, and nothing in the text itself has to change for that.
class ScaledDevice : public QPaintDevice
{
public:
    /// The screen outlives it.
    explicit ScaledDevice(const QPaintDevice &screen) : g_screen(screen) {}

    double scale() const { return g_scale; }
    void setScale(double scale) { g_scale = scale; }

    QPaintEngine *paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return g_screen.width();
        case PdmHeight:
            return g_screen.height();
        case PdmWidthMM:
            return g_screen.widthMM();
        case PdmHeightMM:
            return g_screen.heightMM();
        case PdmNumColors:
            return g_screen.colorCount();
        case PdmDepth:
            return g_screen.depth();
        case PdmDpiX:
            return qRound(g_screen.logicalDpiX() * g_scale);
        case PdmDpiY:
            return qRound(g_screen.logicalDpiY() * g_scale);
        case PdmPhysicalDpiX:
            return g_screen.physicalDpiX();
        case PdmPhysicalDpiY:
            return g_screen.physicalDpiY();
        case PdmDevicePixelRatio:
            return qRound(g_screen.devicePixelRatio());
        case PdmDevicePixelRatioScaled:
            return qRound(g_screen.devicePixelRatio() * QPaintDevice::devicePixelRatioFScale());
        }
        return 0;
    }

private:
    const QPaintDevice &g_screen;
    double g_scale = 1;
};

} // namespace tavrin
