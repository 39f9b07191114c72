// Running a program, as the system does it: ProcessoPosix.cpp and ProcessoWindows.cpp.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Runs the program with these arguments, in UTF-8, and with its standard streams in files; returns
// its exit status, or -1 when it did not end by itself.
int RodaPrograma(const std::string& programa, const std::vector<std::string>& argumentos,
                 const std::filesystem::path& entrada, const std::filesystem::path& saida,
                 const std::filesystem::path& erros);
