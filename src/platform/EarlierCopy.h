#pragma once

#include "platform/Prompts.h"
#include "platform/SafeFile.h"

#include <functional>

/// Whether a file can be used.
using FileCheck = std::function<bool(const QString& path)>;

/// The latest usable copy that a version of Vellumo that wrote in place left beside the file at path when it ended in
/// the middle: "NAME.earlier" or "NAME.earlier(k)". Empty when there is none.
QString EarlierCopyOf(const QString& path, const FileCheck& isUsable);

/// Gives the copy the name of the file at path, under the file's lock and in one step. What was under that name stays
/// as "NAME.damaged", or with a number when that is taken, unless it is empty.
Result RestoreEarlierCopy(const QString& path, const QString& copy);

/// For a file that can't be used, for the reason of the sentence why: asks whether its earlier copy is to take its
/// place. Asks nothing when there is none. True when the copy is in the file's place.
bool OfferEarlierCopy(const QString& path, const QString& why, const FileCheck& isUsable, Prompts& prompts);

/// The same for messages where nobody can answer: a line, after a line break, that names the copy and says how to use
/// it. Empty when there is none.
QString EarlierCopyHint(const QString& path, const FileCheck& isUsable);
