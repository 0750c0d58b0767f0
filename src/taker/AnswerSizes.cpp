#include "taker/AnswerSizes.h"

#include <QtGlobal>

namespace {

// The lengths below are in units of 1/1440 inch.
constexpr int UnitsPerPixel = 15;
constexpr int QuestionBox = 1335;
constexpr int FrameBorder = 270;
constexpr int LeastHighButton = 675;

struct Button {
    int FontSize;
    int Height;
};

Button ButtonFor(int longestAnswerLength) {
    if (longestAnswerLength < 40)
        return {12, 500};
    if (longestAnswerLength < 80)
        return {10, 500};
    if (longestAnswerLength < 180)
        return {10, 600};
    return {10, qMax(LeastHighButton, longestAnswerLength * 220 / 100)};
}

} // namespace

AnswerSizes AnswerSizesFor(int longestAnswerLength, int maxAnswerCount) {
    const Button button = ButtonFor(longestAnswerLength);
    const int base = maxAnswerCount == 0 ? 4000 : maxAnswerCount * (button.Height - 3) + 1975;
    return {.FontSize = button.FontSize,
            .ButtonHeight = button.Height / UnitsPerPixel,
            .FrameHeight = (maxAnswerCount * button.Height + FrameBorder) / UnitsPerPixel,
            .WindowHeight = (base + 1175) / UnitsPerPixel,
            .QuestionHeight = QuestionBox / UnitsPerPixel,
            .InformationHeight = (base - 340) / UnitsPerPixel};
}
