// Any bytes written towards the receiver, as the splitter reads them for its in-band texts.
#include "gps/share/VantrelCommand.h"

#include <QByteArray>
#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const VantrelCommand command =
        readVantrelCommand(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    (void)command.m_strError.size();
    return 0;
}
