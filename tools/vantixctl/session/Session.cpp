#include "session/Session.h"

namespace vantix::ctl {
namespace {

constexpr int kNothing = 6;  // a level above every line's

}  // namespace

Session::Session(const SessionChoice& choice)
    : m_log(choice.log), m_told(choice.configuration), m_center(CreateVantixDataCenterInstance()) {
    m_center->setLogLevel(choice.log.Wanted() ? choice.log.level : kNothing);
    m_center->setDataUtf8(choice.utf8 ? 1 : 0);
    if (!m_told.HasDomain()) {
        m_cloud.emplace();
        m_told.TakeJson(m_cloud->Credentials());
    }
    m_told.Apply(*m_center);
}

Session::~Session() = default;

}  // namespace vantix::ctl
