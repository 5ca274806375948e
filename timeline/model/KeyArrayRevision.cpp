#include "KeyArrayRevision.h"

namespace {

std::uint64_t s_revision = 0;

} // namespace

std::uint64_t KeyArrayRevision()
{
    return s_revision;
}

void CountKeyArrayChange()
{
    ++s_revision;
}
