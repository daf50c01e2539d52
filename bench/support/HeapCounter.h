#pragma once

#include <cstddef>

// Counts bytes handed out by operator new in this process (GEOS allocates
// through it too), so that a benchmark can report the peak of one call.
class HeapPeak
{
public:
    // Starts measuring from the bytes live now.
    HeapPeak();
    // Highest number of bytes live since construction, above the start.
    std::size_t Bytes() const;

private:
    std::size_t m_base;
};

// Bytes the C heap has handed out and not yet taken back (malloc included:
// Qt's containers allocate through it).
std::size_t MallocLiveBytes();
