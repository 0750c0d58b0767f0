#pragma once

#include <QIODevice>
#include <QStringList>

#include <memory>

/// A tool's three streams: bytes as they are, UTF-8 where a person sits at the other end.
struct StandardStreams {
    std::unique_ptr<QIODevice> In;
    std::unique_ptr<QIODevice> Out;
    std::unique_ptr<QIODevice> Err;
    bool ErrIsTerminal = false;
};

/// Opens them; each is empty when it can't be opened. A stream that was closed by the caller takes nothing and gives
/// nothing, and a reader that goes away makes writing fail instead of ending the program.
StandardStreams OpenStandardStreams();

/// The arguments of the program, without its name, every letter kept.
QStringList CommandLineArguments(int argc, char** argv);

/// The folder that holds the program, given the name it was called by.
QString ProgramFolderOf(const char* calledBy);
