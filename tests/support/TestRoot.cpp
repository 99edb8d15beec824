#include "TestRoot.h"

TestRoot::TestRoot() : m_root(m_dir.path()) {
    m_root.ensureExists();
    DeviceRoot::setCurrent(m_root);
    m_hive = std::make_shared<RegistryHive>(m_root.registryFile());
    RegistryHive::setCurrent(m_hive);
}

TestRoot::~TestRoot() {
    RegistryHive::setCurrent(nullptr);
}
