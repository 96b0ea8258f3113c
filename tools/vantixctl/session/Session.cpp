#include "session/Session.h"

namespace vantix::ctl {
namespace {

constexpr int kQuietLevel = 6;  // above the level of every line

}  // namespace

Session::Session(const SessionChoice& choice)
    : m_log(choice.log), m_configuration(choice.configuration), m_center(CreateVantixDataCenterInstance()) {
    m_center->setLogLevel(choice.log.Wanted() ? choice.log.level : kQuietLevel);
    m_center->setDataUtf8(choice.utf8 ? 1 : 0);
    if (!m_configuration.HasDomain()) {
        m_cloud.emplace();
        m_configuration.TakeJson(m_cloud->Credentials());
    }
    m_configuration.Apply(*m_center);
}

Session::~Session() = default;

}  // namespace vantix::ctl
