#pragma once

#include <QByteArray>
#include <QString>

// An in-band text for the splitter written to the receiver's port: "@Vantrel:Simulate=" with a
// target "DDMM.MMMMM,N,DDDMM.MMMMM,E" starts the simulated drive, the bare text ends it. Such a
// text never reaches the receiver; any other bytes are the receiver's.
struct VantrelCommand {
    enum class Kind {
        NotForSplitter, // does not start with "@Vantrel:": goes to the receiver
        SimulateTo,     // m_dLat, m_dLon hold the target in degrees
        SimulateOff,
        Invalid, // meant for the splitter but unreadable: m_strError says why
    };

    Kind m_kind = Kind::NotForSplitter;
    double m_dLat = 0;
    double m_dLon = 0;
    QString m_strError;
};

// Reads one text as written to the port; a trailing line end is allowed.
VantrelCommand readVantrelCommand(const QByteArray& text);
