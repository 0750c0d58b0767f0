#pragma once

class Application;
class Journal;

/// The spreadsheet application, with one reference.
Application* MakeSpreadsheet(Journal& journal);
