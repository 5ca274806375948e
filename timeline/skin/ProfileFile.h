#pragma once

#include <cstdio>
#include <memory>
#include <string>

/// The two things the profile reader asks of the file system. Paths mean what the platform makes of
/// them: on Windows PathExists takes * and ? in the last name as wildcards.

struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FileHandle = std::unique_ptr<std::FILE, FileCloser>;

/// Whether anything, a file or a directory, lies at @p path.
bool PathExists(const std::wstring& path);

/// Opens the regular file at exactly @p path for reading bytes; null when there is none or it may
/// not be read. A directory is refused here, because reading one would fail only later.
FileHandle OpenRegularFile(const std::wstring& path);
