#pragma once

#include <QString>
#include <QStringList>

/// How a program ended: its exit code, -1 when it could not be run or crashed, and all that it
/// wrote.
struct ProgramResult
{
    int code;
    QString output;
};

/// Runs a program with @p input as what it reads, and waits for its end. From any thread.
ProgramResult RunProgram(const QString& program, const QStringList& arguments,
                         const QByteArray& input = {});
