#pragma once

#include <string>

std::string Utf8(const std::wstring& text);
/// Bytes that are no UTF-8 come out as replacement characters.
std::wstring FromUtf8(const std::string& bytes);

/// One line of printable text: \r \n \t \" \\ stand for what they name.
std::wstring Escaped(const std::wstring& text);
std::wstring Unescaped(const std::wstring& text);
/// The record's form of a text: escaped and in quotes; of a very long one the beginning and the number of characters.
std::wstring Quoted(const std::wstring& text);

bool SameName(const std::wstring& one, const std::wstring& other);
/// The shortest text that reads back as the same number.
std::wstring NumberText(double number);
