#include "desktop/dbus/ObjectPaths.h"

#include <QByteArray>

#include <algorithm>

namespace lumeroom {

namespace {

bool isPlain(char byte)
{
    return (byte >= '0' && byte <= '9') || (byte >= 'a' && byte <= 'z')
        || (byte >= 'A' && byte <= 'Z');
}

QByteArray escaped(const std::string& id)
{
    constexpr char kDigits[] = "0123456789abcdef";
    if (id.empty())
        return "_";
    QByteArray text;
    for (const char byte : id) {
        if (isPlain(byte)) {
            text += byte;
        } else {
            text += '_';
            text += kDigits[static_cast<unsigned char>(byte) >> 4U];
            text += kDigits[static_cast<unsigned char>(byte) & 15U];
        }
    }
    return text;
}

std::string unescaped(const QByteArray& text)
{
    std::string id;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '_') {
            id += text[i];
        } else {
            id += QByteArray::fromHex(text.mid(i + 1, 2)).toStdString();
            i += 2;
        }
    }
    return id;
}

} // namespace

QString folderOf(const ObjectKind& kind)
{
    return bus::kRootPath + u'/' + kind.folder;
}

const ObjectKind* kindAt(const QString& path)
{
    const auto* found
        = std::find_if(kObjectKinds.begin(), kObjectKinds.end(), [&path](const ObjectKind& kind) {
              const QString folder = folderOf(kind);
              return path == folder || path.startsWith(folder + u'/');
          });
    return found == kObjectKinds.end() ? nullptr : found;
}

QString pathOf(const StripTarget& target)
{
    const auto* kind = std::find_if(kObjectKinds.begin(), kObjectKinds.end(),
        [&target](const ObjectKind& candidate) { return candidate.type == target.type; });
    return folderOf(*kind) + u'/' + QLatin1StringView(escaped(target.id));
}

std::optional<StripTarget> targetAt(const QString& path)
{
    const ObjectKind* const kind = kindAt(path);
    if (!kind)
        return {};
    const QString name = path.mid(folderOf(*kind).size() + 1);
    StripTarget target{unescaped(name.toLatin1()), kind->type};
    return pathOf(target) == path ? std::optional(std::move(target)) : std::nullopt;
}

} // namespace lumeroom
