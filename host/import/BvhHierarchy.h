#pragma once

#include "BvhText.h"
#include "document/Motion.h"

namespace host {

/// Reads the joints of a motion capture.
class BvhHierarchy
{
public:
    /// Both are kept and outlive this object. @param motion gets the joints and its number of
    /// channels.
    BvhHierarchy(BvhText& text, Motion& motion) : m_text(text), m_motion(motion) {}

    /// Reads up to the first word behind the last root; false once the error has been filled.
    bool Parse();

private:
    bool ParseRoot();
    bool ParseStatement();
    bool OpenJoint(const QString& what);
    bool OpenEndSite();
    bool ParseOffset();
    bool ParseNoChannels();
    bool ParseChannels();
    bool ParseChannel(Joint& joint);
    bool TakeName(QString& name, const QString& what);
    TextScanner& Scanner() { return m_text.Scanner(); }

    /// A block between braces that is being read: a joint's index, or kEndSite. Kept on a stack of
    /// our own, so that no depth of nesting in a file can exhaust the program's.
    static constexpr int kEndSite = -1;

    BvhText& m_text;
    Motion& m_motion;
    QVector<int> m_openBlocks;
};

} // namespace host
