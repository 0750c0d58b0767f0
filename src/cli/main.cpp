#include "cli/Tool.h"
