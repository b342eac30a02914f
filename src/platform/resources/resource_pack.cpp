#include "platform/resources/resource_pack.h"

#include <QDataStream>
#include <QResource>

#include <list>

namespace Zeb {

namespace {

// A resource collection in Qt's binary form, first version, all numbers big endian:
//
//     header   "qres", version, offset of the tree, of the data, of the names
//     names    number of letters, their hash, the letters
//     data     number of bytes, the bytes
//     tree     14 bytes a node: offset of the name, flags, then for a folder the number of its children and
//              the index of the first, for a file country, language and the offset of its data
constexpr quint32 kFormatVersion = 1;
constexpr quint32 kHeaderBytes = 20;
constexpr quint16 kFolder = 2;
constexpr quint16 kPlainFile = 0;
constexpr quint16 kAnyCountry = 0;
constexpr quint16 kAnyLanguage = 1;
const char kRoot[] = "/depth-made";

quint32 hashOf(const QString& name)
{
    quint32 hash = 0;
    for (const QChar letter : name) {
        hash = (hash << 4) + letter.unicode();
        hash ^= (hash & 0xf0000000U) >> 23;
        hash &= 0x0fffffffU;
    }
    return hash;
}

QByteArray nameBytes(const QString& name)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << static_cast<quint16>(name.size()) << hashOf(name);
    for (const QChar letter : name)
        stream << static_cast<quint16>(letter.unicode());
    return bytes;
}

QByteArray packOf(const QString& name, const QByteArray& content)
{
    const QByteArray names = nameBytes(name);
    QByteArray pack;
    QDataStream stream(&pack, QIODevice::WriteOnly);
    const quint32 namesAt = kHeaderBytes;
    const quint32 dataAt = namesAt + static_cast<quint32>(names.size());
    const quint32 treeAt = dataAt + 4 + static_cast<quint32>(content.size());
    stream.writeRawData("qres", 4);
    stream << kFormatVersion << treeAt << dataAt << namesAt;
    stream.writeRawData(names.constData(), names.size());
    stream << static_cast<quint32>(content.size());
    stream.writeRawData(content.constData(), content.size());
    stream << quint32(0) << kFolder << quint32(1) << quint32(1);
    stream << quint32(0) << kPlainFile << kAnyCountry << kAnyLanguage << quint32(0);
    return pack;
}

} // namespace

QString registerResource(const QString& name, const QByteArray& bytes)
{
    // Never freed: Qt may look into it as late as its own last destructor.
    static auto& kept = *new std::list<QByteArray>;
    kept.push_back(packOf(name, bytes));
    const auto* data = reinterpret_cast<const uchar*>(kept.back().constData());
    if (!QResource::registerResource(data, QString::fromLatin1(kRoot))) {
        kept.pop_back();
        return {};
    }
    return QStringLiteral(":%1/%2").arg(QString::fromLatin1(kRoot), name);
}

} // namespace Zeb
