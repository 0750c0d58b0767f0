"""Makes and reads workbooks with openpyxl, for tst_realworkbooks.

workbooks.py make FILE       a workbook as a person may have worked on it
workbooks.py read FILE...    what openpyxl finds in each, and a digest of every part of the package, as JSON
"""

import hashlib
import json
import sys
import zipfile

import openpyxl
from openpyxl.chart import BarChart, Reference
from openpyxl.comments import Comment
from openpyxl.styles import Font, PatternFill


def make(path):
    book = openpyxl.Workbook()
    notes = book.active
    notes.title = "Notes"
    notes["A1"] = "Mine & only mine"
    notes["B2"] = "=SUM(Results!C4:C5)"
    results = book.create_sheet("Results")
    results["A1"] = "Mood"
    for column, head in enumerate(["Client", "Date", "Total Score", "Q.1 ", "Q.2 "], 1):
        results.cell(3, column, head).font = Font(bold=True)
    results.append(["Ann Lee", None, 12, 3, "fine"])
    results.append(["Bo", None, 7, 1, "=)"])
    results["E5"].data_type = "s"
    results["G4"] = "=C4*2"
    results["C5"].fill = PatternFill("solid", fgColor="FFEE00")
    results["A4"].comment = Comment("asked to come again", "Tester")
    results.column_dimensions["A"].width = 31
    results.column_dimensions["D"].number_format = "0.00"
    results.freeze_panes = "A4"
    results.auto_filter.ref = "A3:E5"
    chart = BarChart()
    chart.add_data(Reference(results, min_col=3, min_row=3, max_row=5), titles_from_data=True)
    results.add_chart(chart, "I3")
    sums = book.create_sheet("Sums")
    sums["A1"] = "=SUM(Results!C4:C100)"
    sums["A2"] = "=A1*2"
    sums["A3"] = "=1+1"
    book.active = 1
    book.save(path)


def read(path):
    book = openpyxl.load_workbook(open(path, "rb"))
    sheets = {}
    for sheet in book.worksheets:
        cells = {}
        for row in sheet.iter_rows():
            for cell in row:
                if cell.value is not None:
                    cells[cell.coordinate] = [cell.data_type, str(cell.value)]
        sheets[sheet.title] = {
            "cells": cells,
            "comments": {c.coordinate: c.comment.text for r in sheet.iter_rows() for c in r if c.comment},
            "widths": {k: round(d.width, 2) for k, d in sheet.column_dimensions.items()},
            "charts": len(sheet._charts),
            "filter": sheet.auto_filter.ref or "",
            "panes": sheet.freeze_panes or "",
            "bold": sheet["A3"].font.bold or False,
            "fill": sheet["C5"].fill.fgColor.rgb if sheet["C5"].fill.fill_type else "",
        }
    with zipfile.ZipFile(path) as package:
        parts = {name: hashlib.sha256(package.read(name)).hexdigest() for name in package.namelist()}
    return {"active": book.active.title, "sheets": sheets, "parts": parts}


if sys.argv[1] == "make":
    make(sys.argv[2])
else:
    json.dump({path: read(path) for path in sys.argv[2:]}, sys.stdout)
