#pragma once

#include <string>

/// Registers this program as both applications, and as installed; folder is where its record and orders are. Throws
/// std::runtime_error when the registry refuses, or when another program is registered as one of them: it stays so.
void Register(const std::wstring& folder);
/// Takes back what Register has put; nothing of anybody else's.
void Unregister();
/// The folder; empty when nothing is registered.
std::wstring RegisteredFolder();
