#pragma once

#include <QFont>
#include <QLayout>

/// Distances are whole multiples of this many device-independent pixels.
inline constexpr int GridUnit = 8;

/// The application's font, larger by the factor, at its usual weight.
QFont ScaledFont(double factor);

/// The one type scale: texts that are read at length, headings of a group, and the title of a window's content.
QFont BodyFont();
QFont HeadingFont();
QFont TitleFont();

/// Gives the layout margins and gaps of so many grid units.
void SetRoom(QLayout& layout, int marginUnits, int gapUnits);
