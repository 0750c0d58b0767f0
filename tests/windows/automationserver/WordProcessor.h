#pragma once

class Application;
class Journal;

/// The word processor, with one reference and that many documents open.
Application* MakeWordProcessor(Journal& journal, int documents);
