#pragma once

#include <cstdio>
#include <memory>
#include <string>

/// The two things the profile reader asks of the file system, with the same answers on every
/// platform.

struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, FileCloser>;

/// Whether anything, a file or a directory, lies at @p path.
bool PathExists(const std::wstring& path);

/// Opens the regular file at exactly @p path for reading bytes; null when there is none or it may
/// not be read. A directory is refused here, because reading one would fail only later.
OpenFile OpenRegularFile(const std::wstring& path);
