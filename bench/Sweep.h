#pragma once

/// Where the hand goes: a sweep over the view and back, @p stride pixels a step.
class Sweep
{
public:
    Sweep(int width, int stride) : m_last(width - 1), m_stride(stride) {}

    int Next()
    {
        if (m_x + m_stride > m_last || m_x + m_stride < 0)
            m_stride = -m_stride;
        return m_x += m_stride;
    }

private:
    int m_last;
    int m_stride;
    int m_x = 0;
};
