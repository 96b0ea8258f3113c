#include "records/RecordFields.h"

#include <vantix/records/BWCheckInfo.h>
#include <vantix/records/ConfigInfo.h>
#include <vantix/records/DeviceList.h>
#include <vantix/records/P2PDevInfo.h>
#include <vantix/records/P2PUserInfo.h>
#include <vantix/records/RecordFileList.h>
#include <vantix/records/ServerInfo.h>
#include <vantix/records/TransparentMsgDetail.h>

namespace vantix::ctl {
namespace {

constexpr std::array kBWCheckInfo = {
    Row<&BWCheckInfo::id>("id"),
    Row<&BWCheckInfo::url>("url"),
    Row<&BWCheckInfo::publicKey>("publicKey"),
    Row<&BWCheckInfo::version>("version"),
};

constexpr std::array kConfigInfo = {
    Row<&ConfigInfo::pushAddr>("pushAddr"),     Row<&ConfigInfo::pushAuthAddr>("pushAuthAddr"),
    Row<&ConfigInfo::streamType>("streamType"), Row<&ConfigInfo::dataCollect>("dataCollect"),
    Row<&ConfigInfo::openP2P>("openP2P"),
};

constexpr std::array kDeviceList = {
    Row<&DeviceList::total>("total"),
    Row<&DeviceList::devices>("devices"),
};

constexpr std::array kDeviceListItem = {
    Row<&DeviceListItem::deviceSerial>("deviceSerial"),
    Row<&DeviceListItem::channelNo>("channelNo"),
    Row<&DeviceListItem::name>("name"),
    Row<&DeviceListItem::deviceName>("deviceName"),
    Row<&DeviceListItem::deviceType>("deviceType"),
    Row<&DeviceListItem::status>("status"),
    Row<&DeviceListItem::isEncrypt>("isEncrypt"),
};

constexpr std::array kP2PDevInfo = {
    Row<&P2PDevInfo::deviceSerial>("deviceSerial"),
    Row<&P2PDevInfo::serverInfos>("serverInfos"),
    Row<&P2PDevInfo::defaultKey>("defaultKey"),
    Row<&P2PDevInfo::defaultKeyVer>("defaultKeyVer"),
    Row<&P2PDevInfo::strV3>("strV3"),
    Row<&P2PDevInfo::strV3Sec>("strV3Sec"),
    Row<&P2PDevInfo::strDirectPlayback_EndFlag>("strDirectPlayback_EndFlag"),
    Row<&P2PDevInfo::strV3Download>("strV3Download"),
    Row<&P2PDevInfo::strV3Playback>("strV3Playback"),
    Row<&P2PDevInfo::strV3Talk>("strV3Talk"),
    Row<&P2PDevInfo::isUpdate>("isUpdate"),
    Row<&P2PDevInfo::iRequestCost>("iRequestCost"),
};

constexpr std::array kP2PServerAddr = {
    Row<&P2PServerAddr::ip>("ip"),
    Row<&P2PServerAddr::port>("port"),
};

constexpr std::array kP2PUserInfo = {
    Row<&P2PUserInfo::userId>("userId"),
    Row<&P2PUserInfo::data>("data"),
    Row<&P2PUserInfo::version>("version"),
    Row<&P2PUserInfo::saltIndex>("saltIndex"),
    Row<&P2PUserInfo::iRequestCost>("iRequestCost"),
};

constexpr std::array kRecordFile = {
    Row<&RecordFile::startTime>("startTime"), Row<&RecordFile::endTime>("endTime"), Row<&RecordFile::type>("type"),
    Row<&RecordFile::size>("size"),           Row<&RecordFile::fileId>("fileId"),
};

constexpr std::array kRecordFileList = {
    Row<&RecordFileList::files>("files"),
    Row<&RecordFileList::strDeviceRecordList>("strDeviceRecordList"),
};

constexpr std::array kServerInfo = {
    Row<&ServerInfo::stun1Addr>("stun1Addr"),
    Row<&ServerInfo::stun1Port>("stun1Port"),
    Row<&ServerInfo::stun2Addr>("stun2Addr"),
    Row<&ServerInfo::stun2Port>("stun2Port"),
    Row<&ServerInfo::ttsAddr>("ttsAddr"),
    Row<&ServerInfo::ttsPort>("ttsPort"),
    Row<&ServerInfo::vtmAddr>("vtmAddr"),
    Row<&ServerInfo::vtmPort>("vtmPort"),
    Row<&ServerInfo::authAddr>("authAddr"),
    Row<&ServerInfo::nodeJsAddr>("nodeJsAddr"),
    Row<&ServerInfo::nodeJsHttpPort>("nodeJsHttpPort"),
    Row<&ServerInfo::logAddr>("logAddr"),
    Row<&ServerInfo::pushAddr>("pushAddr"),
    Row<&ServerInfo::microCloudMode>("microCloudMode"),
    Row<&ServerInfo::pushDasDomain>("pushDasDomain"),
    Row<&ServerInfo::pushDasPort>("pushDasPort"),
    Row<&ServerInfo::vtmBackups>("vtmBackups"),
    Row<&ServerInfo::iRequestCost>("iRequestCost"),
};

constexpr std::array kTransparentMsgDetail = {
    Row<&TransparentMsgDetail::msgSeq>("msgSeq"), Row<&TransparentMsgDetail::msgType>("msgType"),
    Row<&TransparentMsgDetail::data>("data"),     Row<&TransparentMsgDetail::destination>("destination"),
    Row<&TransparentMsgDetail::sn>("sn"),         Row<&TransparentMsgDetail::createDate>("createDate"),
};

}  // namespace

Json ToJson(const BWCheckInfo& record) { return AsObject(record, kBWCheckInfo); }
Json ToJson(const ConfigInfo& record) { return AsObject(record, kConfigInfo); }
Json ToJson(const DeviceList& record) { return AsObject(record, kDeviceList); }
Json ToJson(const DeviceListItem& record) { return AsObject(record, kDeviceListItem); }
Json ToJson(const P2PDevInfo& record) { return AsObject(record, kP2PDevInfo); }
Json ToJson(const P2PServerAddr& record) { return AsObject(record, kP2PServerAddr); }
Json ToJson(const P2PUserInfo& record) { return AsObject(record, kP2PUserInfo); }
Json ToJson(const RecordFile& record) { return AsObject(record, kRecordFile); }
Json ToJson(const RecordFileList& record) { return AsObject(record, kRecordFileList); }
Json ToJson(const ServerInfo& record) { return AsObject(record, kServerInfo); }
Json ToJson(const TransparentMsgDetail& record) { return AsObject(record, kTransparentMsgDetail); }

}  // namespace vantix::ctl
