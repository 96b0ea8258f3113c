// Reads made-up system trees, so this file is for the one system that has them.
#if defined(__linux__)

#include "hwprint/HwPrintLinux.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace {

namespace fs = std::filesystem;

/// A temporary folder that stands for the root of a file system; it is gone with its test.
class HwPrintLinux : public testing::Test {
public:
    HwPrintLinux() {
        std::string pattern = (fs::temp_directory_path() / "hwprint-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder");
        }
        m_root = pattern;
    }
    ~HwPrintLinux() override {
        std::error_code error;
        fs::remove_all(m_root, error);
    }
    HwPrintLinux(const HwPrintLinux&) = delete;
    HwPrintLinux& operator=(const HwPrintLinux&) = delete;

protected:
    void Write(const std::string& path, const std::string& text) const {
        fs::create_directories((m_root / path).parent_path());
        std::ofstream(m_root / path, std::ios::binary) << text;
    }
    void Folder(const std::string& path) const { fs::create_directories(m_root / path); }
    void Link(const std::string& path, const std::string& target) const {
        fs::create_directories((m_root / path).parent_path());
        fs::create_symlink(m_root / target, m_root / path);
    }
    /// Puts the root file system on this device of the tree.
    void RootIsOn(const std::string& device) const {
        struct stat info {};
        ASSERT_EQ(stat(m_root.c_str(), &info), 0);
        const std::string link =
            "sys/dev/block/" + std::to_string(major(info.st_dev)) + ":" + std::to_string(minor(info.st_dev));
        fs::remove(m_root / link);
        Link(link, device);
    }
    std::string Serial() const { return hwprint::ReadDiskSerial(m_root.string()); }
    std::string Mac() const { return hwprint::ReadMacAddress(m_root.string()); }

private:
    fs::path m_root;
};

using DiskSerial = HwPrintLinux;
using MacAddress = HwPrintLinux;

TEST_F(DiskSerial, IsThatOfTheDiskBelowTheRootsPartition) {
    Write("sys/devices/sda/device/serial", "FIRST-DISK\n");
    Write("sys/devices/sdb/device/serial", "ROOT-DISK\n");
    Write("sys/devices/sdb/sdb2/partition", "2\n");
    Link("sys/block/sda", "sys/devices/sda");
    Link("sys/block/sdb", "sys/devices/sdb");
    RootIsOn("sys/devices/sdb/sdb2");
    EXPECT_EQ(Serial(), "ROOT-DISK");
}

TEST_F(DiskSerial, IsThatOfAnUnpartitionedRootDisk) {
    Write("sys/devices/vdb/serial", "WHOLE-DISK\n");
    Write("sys/block/vda/serial", "OTHER\n");
    RootIsOn("sys/devices/vdb");
    EXPECT_EQ(Serial(), "WHOLE-DISK");
}

TEST_F(DiskSerial, IsFoundBelowMappedDevices) {
    Write("sys/devices/nvme0n1/device/serial", "BELOW\n");
    Write("sys/devices/nvme0n1/nvme0n1p3/partition", "3\n");
    Link("sys/devices/dm-0/slaves/nvme0n1p3", "sys/devices/nvme0n1/nvme0n1p3");
    Link("sys/devices/dm-1/slaves/dm-0", "sys/devices/dm-0");
    RootIsOn("sys/devices/dm-1");
    EXPECT_EQ(Serial(), "BELOW");
}

TEST_F(DiskSerial, OfSeveralDisksBelowAMappingTheFirstCounts) {
    Write("sys/devices/sda/device/serial", "ONE\n");
    Write("sys/devices/sdb/device/serial", "TWO\n");
    Link("sys/devices/md0/slaves/sdb", "sys/devices/sdb");
    Link("sys/devices/md0/slaves/sda", "sys/devices/sda");
    RootIsOn("sys/devices/md0");
    EXPECT_EQ(Serial(), "ONE");
}

TEST_F(DiskSerial, IsFoundBelowEightMappingsAndNotBelowNine) {
    Write("sys/devices/sda/device/serial", "BELOW\n");
    Write("sys/block/sdz/device/serial", "FALLBACK\n");
    Link("sys/devices/dm-1/slaves/sda", "sys/devices/sda");
    for (int number = 2; number <= 9; ++number) {
        const std::string below = "dm-" + std::to_string(number - 1);
        Link("sys/devices/dm-" + std::to_string(number) + "/slaves/" + below, "sys/devices/" + below);
    }
    RootIsOn("sys/devices/dm-8");
    EXPECT_EQ(Serial(), "BELOW");
    RootIsOn("sys/devices/dm-9");
    EXPECT_EQ(Serial(), "FALLBACK");
}

TEST_F(DiskSerial, AMappingOntoItselfEnds) {
    Link("sys/devices/dm-0/slaves/dm-0", "sys/devices/dm-0");
    Write("sys/block/sda/device/serial", "FALLBACK\n");
    RootIsOn("sys/devices/dm-0");
    EXPECT_EQ(Serial(), "FALLBACK");
}

TEST_F(DiskSerial, AMappingOntoNothingFallsBackToTheFirstDisk) {
    Link("sys/devices/dm-0/slaves/gone", "sys/devices/gone");
    Write("sys/block/sda/device/serial", "FALLBACK\n");
    RootIsOn("sys/devices/dm-0");
    EXPECT_EQ(Serial(), "FALLBACK");
}

TEST_F(DiskSerial, TheDevicesOwnFileComesBeforeTheBlockLayers) {
    Write("sys/devices/sda/device/serial", "DEVICE\n");
    Write("sys/devices/sda/serial", "BLOCK\n");
    RootIsOn("sys/devices/sda");
    EXPECT_EQ(Serial(), "DEVICE");
}

TEST_F(DiskSerial, AnEmptyFileIsPassedOver) {
    Write("sys/devices/sda/device/serial", " \t \n");
    Write("sys/devices/sda/serial", "BLOCK\n");
    RootIsOn("sys/devices/sda");
    EXPECT_EQ(Serial(), "BLOCK");
}

TEST_F(DiskSerial, SomethingThatIsNoFileIsPassedOver) {
    Folder("sys/devices/sda/device/serial");
    Write("sys/devices/sda/serial", "BLOCK\n");
    RootIsOn("sys/devices/sda");
    EXPECT_EQ(Serial(), "BLOCK");
}

TEST_F(DiskSerial, BlanksAndZerosAroundItAreDropped) {
    Write("sys/devices/sda/device/serial", "  \t AB 12  \n");
    RootIsOn("sys/devices/sda");
    EXPECT_EQ(Serial(), "AB 12");
    Write("sys/devices/sda/device/serial", std::string("ZERO-PADDED\0\0\0\0", 15) + "\n");
    EXPECT_EQ(Serial(), "ZERO-PADDED");
}

TEST_F(DiskSerial, OnlyTheFirstLineCounts) {
    Write("sys/devices/sda/device/serial", "FIRST\nSECOND\n");
    RootIsOn("sys/devices/sda");
    EXPECT_EQ(Serial(), "FIRST");
}

TEST_F(DiskSerial, ComesFromTheDeviceManagersRecord) {
    Write("sys/devices/sda/dev", "8:0\n");
    Write("run/udev/data/b8:0", "S:disk/by-id\nE:ID_SERIAL=MODEL_LONG\nE:ID_SERIAL_SHORT=SHORT\n");
    RootIsOn("sys/devices/sda");
    EXPECT_EQ(Serial(), "SHORT");
}

TEST_F(DiskSerial, TheDeviceManagersLongFormServesWithoutTheShortOne) {
    Write("sys/devices/sda/dev", "8:0\n");
    Write("run/udev/data/b8:0", "E:ID_SERIAL_SHORTER=NO\nID_SERIAL=NO\nE:ID_SERIAL=MODEL_LONG\n");
    RootIsOn("sys/devices/sda");
    EXPECT_EQ(Serial(), "MODEL_LONG");
}

TEST_F(DiskSerial, ARootDiskWithoutOneFallsBackToTheFirstDiskThatHasOne) {
    Folder("sys/devices/vda");
    RootIsOn("sys/devices/vda");
    Folder("sys/block/loop0");
    Write("sys/block/sdb/device/serial", "SECOND\n");
    Write("sys/block/sda/device/serial", "FIRST\n");
    EXPECT_EQ(Serial(), "FIRST");
}

TEST_F(DiskSerial, AnUnknownRootDeviceFallsBackToTheFirstDisk) {
    Write("sys/block/nvme0n1/device/serial", "NVME\n");
    EXPECT_EQ(Serial(), "NVME");
}

TEST_F(DiskSerial, IsEmptyWhereNothingCanBeRead) {
    EXPECT_EQ(Serial(), "");
    Folder("sys/block/sda");
    EXPECT_EQ(Serial(), "");
    EXPECT_EQ(hwprint::ReadDiskSerial("/nowhere/at/all"), "");
    EXPECT_EQ(hwprint::ReadDiskSerial(""), "");
}

TEST_F(MacAddress, IsThatOfTheFirstPhysicalAdapter) {
    Write("sys/class/net/docker0/address", "02:42:aa:bb:cc:dd\n");
    Write("sys/class/net/enp3s0/address", "00:11:22:33:44:55\n");
    Folder("sys/class/net/enp3s0/device");
    Write("sys/class/net/wlan0/address", "00:99:22:33:44:55\n");
    Folder("sys/class/net/wlan0/device");
    EXPECT_EQ(Mac(), "00-11-22-33-44-55");
}

TEST_F(MacAddress, IsWrittenInUpperCaseWithDashes) {
    Write("sys/class/net/eth0/address", "ab:cd:ef:01:2f:9a\n");
    Folder("sys/class/net/eth0/device");
    EXPECT_EQ(Mac(), "AB-CD-EF-01-2F-9A");
}

TEST_F(MacAddress, AVirtualAdapterServesWhereThereIsNoPhysicalOne) {
    Write("sys/class/net/tun1/address", "02:00:00:00:00:02\n");
    Write("sys/class/net/eth0/address", "02:00:00:00:00:01\n");
    EXPECT_EQ(Mac(), "02-00-00-00-00-01");
}

TEST_F(MacAddress, LoopbackNeverCounts) {
    Write("sys/class/net/lo/address", "02:00:00:00:00:01\n");
    Folder("sys/class/net/lo/device");
    EXPECT_EQ(Mac(), "");
}

TEST_F(MacAddress, AddressesOfAnotherShapeArePassedOver) {
    const char* const others[] = {"00:00:00:00:00:00\n",
                                  "02-00-00-00-00-01\n",
                                  "\n",
                                  "",
                                  "0011.2233.4455\n",
                                  "00:11:22:33:44\n",
                                  "80:00:02:08:fe:80:00:00:00:00:00:00:00:11:22:33:44:55:66:77\n"};
    for (const char* const other : others) {
        SCOPED_TRACE(other);
        Write("sys/class/net/aa0/address", other);
        Folder("sys/class/net/aa0/device");
        EXPECT_EQ(Mac(), "");
    }
    Write("sys/class/net/eth0/address", "02:00:00:00:00:01\n");
    EXPECT_EQ(Mac(), "02-00-00-00-00-01");
}

TEST_F(MacAddress, IsEmptyWhereNothingCanBeRead) {
    EXPECT_EQ(Mac(), "");
    Folder("sys/class/net/eth0/device");
    EXPECT_EQ(Mac(), "");
    EXPECT_EQ(hwprint::ReadMacAddress("/nowhere/at/all"), "");
}

TEST(CopyText, FillsItsBufferAndNotMore) {
    struct Row {
        const char* text;
        int result;
        const char* copied;
    };
    constexpr Row kRows[] = {{"", -1, ""}, {"abc", 0, "abc"}, {"1234567", 0, "1234567"}, {"12345678", 0, "1234567"}};
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.text);
        char buffer[16];
        std::fill(std::begin(buffer), std::end(buffer), '#');
        EXPECT_EQ(hwprint::CopyText(row.text, buffer, 8), row.result);
        EXPECT_STREQ(buffer, row.copied);
        EXPECT_EQ(std::string(buffer + 8, 8), "########");
    }
    EXPECT_EQ(hwprint::CopyText("abc", nullptr, 8), -1);
}

}  // namespace

#endif
