#include "nav/goto/GoToTarget.h"

void CGoToTarget::SetTarget(double dLon, double dLat, const QString& strName) {
    m_dLon = dLon;
    m_dLat = dLat;
    m_strName = strName;
    Q_EMIT changed();
}

bool CGoToTarget::GetTarget(double& dLon, double& dLat) const {
    dLon = m_dLon;
    dLat = m_dLat;
    return m_dLon != 0 && m_dLat != 0;
}
