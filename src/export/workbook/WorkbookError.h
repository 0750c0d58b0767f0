#pragma once

#include "base/Failure.h"

/// A package that is no workbook, or one that can't be read. The message is the reason alone, such as "it is not a zip
/// archive", without the file's name.
class WorkbookError : public Failure {
  public:
    using Failure::Failure;
};
