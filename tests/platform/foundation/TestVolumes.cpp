#include "platform/foundation/Volumes.h"

#include <gmock/gmock.h>

using namespace lyrabox;
using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray table =
    "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw,errors=remount-ro\n"
    "23 22 0:5 / /proc rw,nosuid - proc proc rw\n"
    "24 22 0:20 / /run rw,nosuid shared:5 - tmpfs tmpfs rw,size=1000k\n"
    "25 22 8:2 / /home rw,relatime shared:2 - ext4 /dev/sda2 rw\n"
    "40 24 8:17 / /run/media/ann/USB\\040STICK rw,nosuid shared:9 master:3 - vfat /dev/sdb1 "
    "rw,utf8\n"
    "41 24 11:0 / /media/cdrom ro,nosuid - iso9660 /dev/sr0 ro\n"
    "42 22 8:33 / /mnt/back\\134slash rw - ext4 /dev/sdc1 ro\n"
    "43 25 0:50 / /home/ann/server rw - fuse.sshfs ann@server:/music rw,user_id=0\n"
    "44 25 0:51 / /home/ann/.cache/doc rw - fuse.sshfs hidden rw\n"
    "45 25 0:52 / /home/bob/disk rw - ext4 /dev/sdd1 rw\n"
    "46 24 0:53 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
    "47 22 8:50 / /mnt/secret rw - ext4 /dev/sde1 rw\n"
    "48 22 8:51 / /srv/music rw - ext4 /dev/sdf1 rw\n";

MountNotes notes()
{
    return {
        u"/home/ann"_s,
        {{u"/dev/sdb1"_s, u"Ann's Stick"_s}, {u"/dev/sr0"_s, QString()}},
        parseMountOptions(
            "SRC=/dev/sde1 TARGET=/mnt/secret ROOT=/ OPTS=uhelper=udisks2,x-gvfs-hide\n"
            "ID=48 SRC=/dev/sdf1 TARGET=/srv/music OPTS=x-gvfs-show,x-gvfs-name=Shared%20Music\n"
            "garbage\n")};
}

} // namespace

TEST(Mounts, ReadsEscapesAndFlagsOfTheTable)
{
    const std::vector<Mount> mounts = parseMounts(table);
    ASSERT_EQ(mounts.size(), 10U) << "the kernel's own file systems must be left out";
    EXPECT_EQ(mounts[0], (Mount{22, u"/"_s, u"ext4"_s, u"/dev/sda1"_s, false}));
    EXPECT_EQ(mounts[2],
              (Mount{40, u"/run/media/ann/USB STICK"_s, u"vfat"_s, u"/dev/sdb1"_s, false}));
    EXPECT_EQ(mounts[3], (Mount{41, u"/media/cdrom"_s, u"iso9660"_s, u"/dev/sr0"_s, true}));
    EXPECT_EQ(mounts[4], (Mount{42, u"/mnt/back\\slash"_s, u"ext4"_s, u"/dev/sdc1"_s, true}));
}

TEST(Mounts, MalformedLinesAreLeftOut)
{
    EXPECT_TRUE(parseMounts("").empty());
    EXPECT_TRUE(
        parseMounts(
            "\n\ngarbage\n1 2 3\nx 1 8:1 / /a rw - ext4 /dev/sda1 rw\n1 1 8:1 / /a rw ext4\n"
            "1 1 8:1 / /a rw - ext4\n")
            .empty());
    EXPECT_EQ(parseMounts("1 1 8:1 / /a\\04 rw - ext4 \\777 rw").at(0).path, u"/a\\04"_s);
}

TEST(Mounts, TheLastMountOnAPathCounts)
{
    const std::vector<Mount> mounts = parseMounts("1 1 0:1 / /mnt/a rw - autofs systemd-1 rw\n"
                                                  "2 1 8:1 / /mnt/a rw - nfs server:/a rw\n"
                                                  "3 1 8:1 / /mnt/b rw - ext4 /dev/sdb1 rw\n"
                                                  "4 1 0:2 / /mnt/b rw - tmpfs tmpfs rw\n");
    ASSERT_EQ(mounts.size(), 1U);
    EXPECT_EQ(mounts[0].source, u"server:/a"_s);
}

TEST(Volumes, AreTheMountsThatAFileManagerShows)
{
    EXPECT_THAT(shownVolumes(parseMounts(table), notes()),
                testing::ElementsAre(Volume{u"/run/media/ann/USB STICK"_s, u"Ann's Stick"_s, false},
                                     Volume{u"/media/cdrom"_s, u"cdrom"_s, true},
                                     Volume{u"/mnt/back\\slash"_s, u"back\\slash"_s, true},
                                     Volume{u"/home/ann/server"_s, u"server"_s, false},
                                     Volume{u"/srv/music"_s, u"Shared Music"_s, false}));
}

TEST(Volumes, WithoutNotesThePathDecidesAndNamesTheVolume)
{
    const std::vector<Volume> volumes = shownVolumes(parseMounts(table), {});
    ASSERT_EQ(volumes.size(), 4U);
    EXPECT_EQ(volumes[0].name, u"USB STICK"_s);
    EXPECT_EQ(volumes[3].path, u"/mnt/secret"_s);
}

TEST(Volumes, TheSystemsTableCanBeRead)
{
    for (const Volume &volume : mountedVolumes()) {
        EXPECT_TRUE(volume.path.startsWith(u'/'));
        EXPECT_NE(volume.path, u"/"_s);
        EXPECT_FALSE(volume.name.isEmpty());
    }
}

TEST(MountChanges, DistinguishMountsFromUnmounts)
{
    const std::vector<Mount> before = parseMounts(table);
    std::vector<Mount> fewer = before;
    fewer.pop_back();
    EXPECT_FALSE(mountChange(before, before).isMounted || mountChange(before, before).isUnmounted);
    EXPECT_TRUE(mountChange(fewer, before).isMounted);
    EXPECT_FALSE(mountChange(fewer, before).isUnmounted);
    EXPECT_TRUE(mountChange(before, fewer).isUnmounted);
    std::vector<Mount> another = before;
    another.back().id = 99;
    EXPECT_TRUE(mountChange(before, another).isMounted && mountChange(before, another).isUnmounted)
        << "another disk was mounted on the same path";
}
