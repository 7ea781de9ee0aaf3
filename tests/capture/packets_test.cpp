#include "tests/capture/loaded_driver.h"
#include "tests/support/tests.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

// What becomes of sections on their way through packets, good and bad. Every section is a table
// of its own, so that each that arrives whole is handed over.

namespace {

constexpr unsigned kPid = 0x1ABC;
constexpr unsigned kOtherPid = 0x1FFE;

/// A section of so many bytes, told from others by its extension; no byte of it looks like
/// stuffing or a packet's start.
Bytes section(unsigned extension, std::size_t size)
{
    Bytes body(size - 12);
    for (std::size_t i = 0; i < body.size(); ++i)
        body[i] = static_cast<uint8_t>(i % 61 + extension);
    return longSection(0x46, 0xFF00 + extension, body);
}

const Bytes kFirst = section(1, 400); // three packets when it stands alone
const Bytes kSecond = section(2, 30);
const Bytes kThird = section(3, 4096);

Bytes putAll()
{
    StreamBuilder stream;
    stream.put(kPid, kFirst).nullPackets(1).put(kPid, kSecond).put(kPid, kThird);
    return stream.build();
}

/// Packet `index` once more, right behind itself.
Bytes repeated(Bytes stream, std::size_t index)
{
    const auto at = stream.begin() + static_cast<std::ptrdiff_t>(index * kPacketSize);
    const Bytes packet(at, at + kPacketSize);
    stream.insert(at, packet.begin(), packet.end());
    return stream;
}

Bytes erased(Bytes stream, std::size_t offset, std::size_t count)
{
    const auto at = stream.begin() + static_cast<std::ptrdiff_t>(offset);
    stream.erase(at, at + static_cast<std::ptrdiff_t>(count));
    return stream;
}

/// The stream of putAll with one byte of a packet set.
Bytes spoilt(std::size_t index, std::size_t byte, unsigned value)
{
    Bytes stream = putAll();
    stream[index * kPacketSize + byte] = static_cast<uint8_t>(value);
    return stream;
}

Bytes packed(const std::vector<Bytes>& sections)
{
    return StreamBuilder().putPacked(kPid, sections).build();
}

Bytes interleaved()
{
    StreamBuilder wanted;
    wanted.put(kPid, kThird);
    StreamBuilder stream;
    for (std::size_t i = 0; i < wanted.packetCount(); ++i) {
        stream.put(kPid, {}); // a packet's place
        std::copy(wanted.packet(i).begin(), wanted.packet(i).end(),
                  stream.packet(stream.packetCount() - 1).begin());
        stream.put(kOtherPid, kSecond).nullPackets(i % 3);
    }
    return stream.build();
}

/// Between the first and the second packet of a section one that has no payload and so does not
/// count.
Bytes withAdaptationFieldOnly()
{
    Bytes stream = repeated(putAll(), 0);
    stream[kPacketSize + 1] &= 0x1F;
    stream[kPacketSize + 3] = 0x20;
    stream[kPacketSize + 4] = 183;
    return stream;
}

/// The first packet, with a clock reference, and once more with a later one.
Bytes repeatedWithOtherClock()
{
    StreamBuilder stream;
    stream.put(kPid, kFirst, 10);
    stream.packet(0)[5] = 0x10;
    Bytes bytes = repeated(stream.build(), 0);
    bytes[kPacketSize + 9] = 0x55;
    return bytes;
}

/// The second packet of a section says that its adaptation field is longer than the packet.
Bytes withAdaptationFieldTooLong()
{
    Bytes stream = spoilt(1, 3, 0x31);
    stream[kPacketSize + 4] = 184;
    return stream;
}

struct CapturePackets : testing::Test {
    void delivers(const char* name, const Bytes& stream, const std::vector<Bytes>& seen) const
    {
        const auto wanted = request(kPid, 0x46, CollectionMode::OtherStreams);
        EXPECT_EQ(driver.sectionsOf(stream, wanted), seen) << name;
    }

    LoadedDriver driver;
};

TEST_F(CapturePackets, deliverEverySectionThatIsWhole)
{
    const std::vector<Bytes> all{kFirst, kSecond, kThird};
    const std::vector<Bytes> notFirst{kSecond, kThird};
    delivers("oneToAPacketAndMore", putAll(), all);
    delivers("severalInOnePacket",
             StreamBuilder().put(kPid, joined({kSecond, section(4, 15), section(5, 12)})).build(),
             {kSecond, section(4, 15), section(5, 12)});
    delivers("oneBehindTheOther", packed({kFirst, kSecond, kThird}), all);
    delivers("startInTheLastPayloadByte", packed({section(4, 182), kSecond}),
             {section(4, 182), kSecond});
    delivers("headerSplitAfterTwoBytes", packed({section(4, 181), kSecond}),
             {section(4, 181), kSecond});
    delivers("headerEndsThePacket", packed({section(4, 180), kSecond}), {section(4, 180), kSecond});
    delivers("pushedOutOfTheLastByteByThePointer", packed({section(4, 183 + 183), kSecond}),
             {section(4, 183 + 183), kSecond});
    delivers("packetsFilledExactly", packed({section(4, 183 + 184), kSecond}),
             {section(4, 183 + 184), kSecond});
    delivers("oneByteBesideTheAdaptationField", StreamBuilder().put(kPid, kFirst, 182).build(),
             {kFirst});
    delivers("packetWithoutPayloadBetween", withAdaptationFieldOnly(), all);
    delivers("otherPidsBetween", interleaved(), {kThird});
    delivers("packetsTwice", repeated(repeated(repeated(putAll(), 7), 1), 0), all);
    delivers("packetTwiceWithOtherClock", repeatedWithOtherClock(), {kFirst});
    delivers("packetThrice", repeated(repeated(putAll(), 1), 1), notFirst);
    delivers("lostFirstPacket", erased(putAll(), 0, kPacketSize), notFirst);
    delivers("lostMiddlePacket", erased(putAll(), kPacketSize, kPacketSize), notFirst);
    delivers("lostLastPacket", erased(putAll(), 2 * kPacketSize, kPacketSize), notFirst);
    delivers("sameCounterOtherPayload", spoilt(1, 3, 0x10), notFirst);
    delivers("scrambled", spoilt(1, 3, 0x80 | 0x11), notFirst);
    delivers("transportError", spoilt(1, 1, 0x80 | kPid >> 8), notFirst);
    delivers("adaptationFieldTooLong", withAdaptationFieldTooLong(), notFirst);
    delivers("pointerPastWhatIsKnown", spoilt(0, 1, kPid >> 8), notFirst);
    delivers("pointerIntoASectionNotBegun",
             erased(packed({section(4, 300), kSecond}), 0, kPacketSize), {kSecond});
    delivers("pointerOutOfThePacket", spoilt(0, 4, 184), notFirst);
    delivers("syncByteDamaged", spoilt(1, 0, 0x46), notFirst);
    delivers("bytesMissing", erased(putAll(), kPacketSize + 50, 77), notFirst);
    delivers("cutInMidPacket", erased(putAll(), putAll().size() - 100, 100), {kFirst, kSecond});
    delivers("shorterThanItSays",
             StreamBuilder().put(kPid, std::span(kFirst).first(20)).put(kPid, kSecond).build(),
             {kSecond});
}

TEST_F(CapturePackets, areFoundInEveryFramingBehindRubbish)
{
    StreamBuilder stream;
    stream.put(kPid, kFirst).put(kPid, kSecond).put(kPid, kThird);
    for (const std::size_t size : {188U, 192U, 204U})
        for (const std::size_t rubbish : {0U, 1U, 187U, 1000U}) {
            Bytes bytes(rubbish, 0x47);
            const Bytes packets = stream.build(size);
            bytes.insert(bytes.end(), packets.begin(), packets.end());
            const std::string name = std::to_string(size) + " behind " + std::to_string(rubbish);
            delivers(name.c_str(), bytes, {kFirst, kSecond, kThird});
        }
}

TEST_F(CapturePackets, ofAFileLargerThanABlockAreAllSeen)
{
    StreamBuilder stream;
    std::vector<Bytes> sections;
    for (unsigned i = 0; i < 40; ++i) {
        sections.push_back(section(i, 3000 + i));
        stream.put(kPid, sections.back()).nullPackets(500);
    }
    for (const std::size_t size : {188U, 192U, 204U})
        delivers("many blocks", stream.build(size), sections);
}

} // namespace
