#pragma once

#include "KeyFacts.h"

#include <QString>

/// What is wrong with a value, as the rest of a sentence; empty when nothing is.
QString FaultOfValue(const QString& value, SkinValueKind kind, const KeyFact& fact);
