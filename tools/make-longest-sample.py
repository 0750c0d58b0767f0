#!/usr/bin/env python3
"""Writes samples/Longest Test.vlm and its responses file.

The test is as long as a test can be: 500 questions, and exactly 32,767
characters once the reader has dropped the line ends and turned each "<P>"
into two characters. The output is the same on every run.

Usage: make-longest-sample.py [FOLDER]     (default: the samples folder)
"""

import csv
import io
import sys
from pathlib import Path

NAME = "Longest Test"
LENGTH = 32767
QUESTIONS = 500

PLACES = [
    ("Kitchen", [
        "the old kettle", "the bread knife", "the spice shelf", "the blue cup",
        "the tea towel", "the oven door", "the soup ladle", "the egg timer",
        "the fruit bowl", "the jam shelf"]),
    ("Garden", [
        "the apple tree", "the rain barrel", "the rusty gate", "the bean rows",
        "the compost", "the stone wall", "the bird bath", "the long hose",
        "the rose hedge", "the mossy step"]),
    ("Way to town", [
        "the bus stop", "the iron bridge", "the corner shop", "the mail box",
        "the steep lane", "the river path", "the toll house", "the big clock",
        "the short cut", "the chestnuts"]),
    ("Workshop", [
        "the vice", "the glue pot", "the plane", "the paint tin", "the nail jar",
        "the saw horse", "the oil can", "the workbench", "the toolbox",
        "the step stool"]),
    ("Evening", [
        "the reading lamp", "the warm socks", "the radio", "the card game",
        "the night walk", "the open fire", "the first star", "the late train",
        "the soft chair", "the last page"]),
]

SENTENCES = [
    "I would miss {} within the first week.",
    "I can picture {} with closed eyes.",
    "I take good care of {} myself.",
    "Thinking of {} always cheers me up.",
    "I would gladly show {} to a visitor.",
    "I have a good story to tell about {}.",
    "I could do without {} for years.",
    "I stop at {} nearly every day.",
    "As a child I was fond of {}.",
    "I never find enough time for {}.",
]

# Sentences that speak against their thing: agreement lowers the score.
REVERSED = {6, 9}
LAST_QUESTION_WITH_ANSWERS = 200

TEMPLATE = [("No", 0), ("A little", 1), ("Rather", 2), ("Yes", 3)]
REVERSED_ANSWERS = [("No", 2), ("Rather", 1), ("Yes", 0)]

SHORT_QUESTION = 250
LONG_QUESTION = QUESTIONS

OPENING = (
    "Five hundred small statements about everyday things, in the kitchen, in the garden, on the way to town, in the "
    "workshop and in the evening.<P>Nobody needs to answer them in one go, and nobody needs to answer them all. They "
    "are here to show how long a test can be, and that it stays as quick at the last question as at the first.<P>")
INSTRUCTIONS = (
    "Say how well each statement fits you. Skip what you don't know. Some statements come with answers of their own.")
COMPLETION = "That was number five hundred. You have earned a rest."

OPTIONS = [
    "[REPORT ONLY WHEN DONE]", "[NAVIGATION BUTTONS]",
    "[REPORT TITLE]", "[REPORT MULTICHOICE QUESTION ANSWERS]", "[REPORT SUBSCALES]", "[REPORT TOTAL SCORE]",
    "[REPORT NUMBER OF QUESTIONS COMPLETED]", "[REPORT ANALYSIS]", "[PROMPT CLIENT NAME]", "[REPORT SHORT ANSWERS]",
    "[REPORT LONG ANSWERS]", "[REPORT QUESTIONS]"]


def range_line(low, high, text):
    return f"[SIG]{low} to {high} ={text}[/SIG]"


def answer_line(text, value):
    return f"[A]{text}[v={value}][/A]"


def statement(number):
    """Place (from 0) and text of statement `number`, from 1; no two are alike."""
    thing = (number - 1) * 7 % 50
    sentence = ((number - 1) // 50 + thing) % len(SENTENCES)
    place, item = divmod(thing, 10)
    return place, sentence, SENTENCES[sentence].format(PLACES[place][1][item])


def has_reversed_answers(number, sentence):
    return sentence in REVERSED and number <= LAST_QUESTION_WITH_ANSWERS


def question_lines(number):
    if number == SHORT_QUESTION:
        return ["[Q]Half way. Which thing do you like best so far?", "[QT]2[/QT]", "[/Q]"]
    if number == LONG_QUESTION:
        return ["[Q]Which thing was missing from this list?", "[QT]3[/QT]", "[/Q]"]
    place, sentence, text = statement(number)
    lines = ["[Q]" + text]
    if has_reversed_answers(number, sentence):
        lines += [answer_line(*answer) for answer in REVERSED_ANSWERS]
    if sentence not in REVERSED or number <= LAST_QUESTION_WITH_ANSWERS:
        lines.append(f"[SS={place + 1}]")
    return lines + ["[/Q]"]


def test_lines(introduction):
    lines = ["[TITLE]The Longest Test[/TITLE]", "",
             f"[INTRODUCTION]{introduction}[/INTRODUCTION]", "",
             f"[INSTRUCTIONS]{INSTRUCTIONS}[/INSTRUCTIONS]", "",
             f"[COMPLETION MESSAGE]{COMPLETION}[/COMPLETION MESSAGE]", "",
             "[SUBSCALES]"]
    for name, _ in PLACES:
        lines += ["[S]" + name,
                  range_line(0, 90, "These things may stand where they are."),
                  range_line(80, 180, "Some of these things matter to you."),
                  range_line(181, 256, "Here you are at home."),
                  "[/S]"]
    lines += ["[/SUBSCALES]", "", "[TOTAL]",
              range_line(0, 400, "You travel light."),
              range_line(401, 900, "You keep what you need."),
              range_line(901, 1454, "Much of the world is dear to you."),
              "[/TOTAL]", "", "[TEMPLATE]"]
    lines += [answer_line(*answer) for answer in TEMPLATE]
    lines += ["[/TEMPLATE]", ""]
    for number in range(1, QUESTIONS + 1):
        lines += question_lines(number)
    return lines + OPTIONS


def length_when_read(lines):
    text = "".join(lines)
    return len(text) - text.count("<P>")


def filling(length):
    """Sentences of exactly `length` characters that name some of the things."""
    things = [thing for _, group in PLACES for thing in group]
    start, end = "You are going to meet, among others, ", "."
    room = length - len(start) - len(end)
    # ways[n]: positions of things whose names, joined by ", ", take n characters
    ways = {-2: []}
    for position, thing in enumerate(things):
        for taken, chosen in list(ways.items()):
            total = taken + len(thing) + 2
            if total <= room and total not in ways:
                ways[total] = chosen + [position]
    if room not in ways:
        raise SystemExit(f"No choice of things fills {length} characters.")
    return start + ", ".join(things[position] for position in ways[room]) + end


def responses():
    """Header and rows; whole columns are missing, and their order is mixed."""
    missing = {17, 99, 333, 480}
    numbers = [n for n in range(1, QUESTIONS + 1) if n not in missing]
    numbers = numbers[250:] + numbers[:250]
    header = ["client", "administrator"] + [str(n) for n in numbers]

    def row(client, choose, short, long):
        cells = []
        for n in numbers:
            if n == SHORT_QUESTION:
                cells.append(short)
            elif n == LONG_QUESTION:
                cells.append(long)
            else:
                count = 3 if has_reversed_answers(n, statement(n)[1]) else 4
                cells.append(choose(n, count))
        return [client, "M. Castellanos"] + cells

    return header, [
        row("Eleanor Whitlock", lambda n, c: str(n * n % 11 % c + 1), "The rain barrel",
            "The window sill.\r\nMine is wide enough to sit on, and the cat knows it."),
        row("Håkon Lie", lambda n, c: str(c), "The open fire, the radio", "Nothing"),
        row("Da Costa, Inês", lambda n, c: "1", "", ""),
        row("Walter Grün", lambda n, c: str(n % c + 1) if n <= 120 else "", "", ""),
        row("Nobody Inparticular", lambda n, c: "", "", ""),
        row("Amélie \"Mimi\" Roux", lambda n, c: "" if n % 5 == 0 else str(n % 7 % c + 1), "0", "A good, long table"),
    ]


def main():
    folder = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent / "samples"
    missing = LENGTH - length_when_read(test_lines(OPENING))
    lines = test_lines(OPENING + filling(missing))
    assert length_when_read(lines) == LENGTH
    (folder / f"{NAME}.vlm").write_bytes("".join(line + "\r\n" for line in lines).encode("ascii"))

    header, rows = responses()
    text = io.StringIO()
    csv.writer(text, lineterminator="\r\n").writerows([header] + rows)
    (folder / f"{NAME}.responses.csv").write_bytes(text.getvalue().encode("utf-8"))


if __name__ == "__main__":
    main()
