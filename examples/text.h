// Texts in UTF-16: conversion to the console's UTF-8, the program's arguments, files by their paths.
#pragma once

#include <brindle.h>

#include <cstdio>
#include <string>
#include <vector>

// UTF-16 literals, wide on Windows.
#ifdef _WIN32
#define TEXT16(literal) L##literal
#else
#define TEXT16(literal) u##literal
#endif

using Text = std::basic_string<BrindleChar>;

std::string ToUtf8(const Text& text);

// The program's arguments, its own name first.
std::vector<Text> Arguments(int argc, char** argv);

// Null when the file cannot be read.
std::FILE* OpenToRead(const Text& path);
