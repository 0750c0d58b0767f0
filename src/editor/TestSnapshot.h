#pragma once

#include "editor/TypedEntry.h"
#include "testdoc/TestDocument.h"

#include <QByteArray>

/// Everything that the editor can change in a document, and its file name, to the letter, with what was typed and isn't
/// in the document yet; unlike a test file it also keeps what a reader would lose or not understand.
QByteArray ToSnapshot(const TestDocument& test, const TypedEntries& typed = {});

/// False, and test and typed unchanged, when the bytes are no whole snapshot. An entry that belongs to one that the
/// document doesn't have is left out, and one with a number of its own beyond those is a new one.
bool FromSnapshot(const QByteArray& bytes, TestDocument& test, TypedEntries& typed);
