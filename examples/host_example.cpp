#include <vantix/IVantixDataCenter.h>
#include <vantix/records/DevChannelInfo.h>
#include <vantix/records/DevDetailInfo.h>

#include <iostream>

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: host_example DOMAIN APP_ID ACCESS_TOKEN SERIAL\n";
        return 2;
    }
    vantix::IVantixDataCenter* center = CreateVantixDataCenterInstance();
    center->setDomain(argv[1], "");
    center->setAppId(argv[2]);
    center->setAccessToken(argv[3]);
    vantix::DevChannelInfo channel;
    vantix::DevDetailInfo device;
    std::future<int32_t> fetch;
    const int cached = center->getDevDetailInfo(argv[4], 1, channel, device, fetch);
    const int result = fetch.valid() ? fetch.get() : cached;
    std::cout << result << ": " << device.deviceSerial << (device.deviceStatus == 1 ? " is online\n" : " is offline\n");
    DestroyVantixDataCenterInstance(center);
    return result == 0 ? 0 : 1;
}
