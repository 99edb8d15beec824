#include "demo/DemoDrive.h"

#include "gps/TrackLogWriter.h"
#include "demo/DemoReceiver.h"
#include "demo/DemoRoute.h"
#include "demo/DriveSimulator.h"

QByteArray generateDemoDrive(const DemoDriveOptions& options) {
    const RoutePath path(demoRoute());
    DemoReceiver receiver(options.m_nSeed);
    QByteArray log = TrackLogWriter::headerLine();
    for (const DriveSample& sample : simulateDrive(path, options.m_nSeed, options.m_tStartUtc))
        log += receiver.sentences(sample);
    return log;
}
