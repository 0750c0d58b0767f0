#pragma once

/// How big the test window makes its answer buttons and itself, by the test's longest answer and its largest number
/// of answers. Lengths are in pixels of 1/96 inch, font sizes in points. Answers are never shown smaller than the text
/// of the body, whatever the font size here; long ones wrap, and buttons grow with them.
struct AnswerSizes {
    int FontSize = 12;
    int ButtonHeight = 0;
    /// The frame around as many buttons as any question has.
    int FrameHeight = 0;
    int WindowHeight = 0;
    /// The question box while it shows a question, and while it shows instructions and the like.
    int QuestionHeight = 0;
    int InformationHeight = 0;
};

AnswerSizes AnswerSizesFor(int longestAnswerLength, int maxAnswerCount);
