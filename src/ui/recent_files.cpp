#include "ui/recent_files.h"

#include <algorithm>

#include <QSettings>

namespace tessaview::recent_files {

namespace {

const char* const kOrganization = "Local AppWizard-Generated Applications";
const char* const kApplication = "Tessaview3";

QString key(int place)
{
    return QStringLiteral("Recent File List/File%1").arg(place + 1);
}

void store(const QStringList& files)
{
    QSettings settings{QLatin1String(kOrganization), QLatin1String(kApplication)};
    settings.remove(QStringLiteral("Recent File List"));
    for (int place = 0; place < std::min(kMostFiles, int(files.size())); ++place)
        settings.setValue(key(place), files[place]);
}

} // namespace

QStringList list()
{
    const QSettings settings{QLatin1String(kOrganization), QLatin1String(kApplication)};
    QStringList files;
    for (int place = 0; place < kMostFiles; ++place) {
        const QString file = settings.value(key(place)).toString();
        if (!file.isEmpty())
            files.append(file);
    }
    return files;
}

void add(const QString& path)
{
    QStringList files = list();
    files.removeAll(path);
    files.prepend(path);
    store(files);
}

void remove(const QString& path)
{
    QStringList files = list();
    files.removeAll(path);
    store(files);
}

} // namespace tessaview::recent_files
