#pragma once

#include "nav/poi/PoiLoader.h"
#include "nav/poi/PoiSettings.h"
#include "support/Files.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

// A POI file in the POI folder of the current device root, switched on or off in the subkey POI.
inline void addPoiFile(const QString& rootFolder, const QString& name, const QByteArray& bytes,
                       bool enabled) {
    writeFile(rootFolder + "/POI/" + name, bytes);
    CRegistryKey(PoiSettings::kFilesKey).WriteFlag(name, enabled);
}

// Starts a load at once and waits for its end.
inline void loadNow(PoiLoader& loader) {
    QSignalSpy loaded(&loader, &PoiLoader::loaded);
    loader.start(0);
    ASSERT_TRUE(loaded.wait(10000));
}
