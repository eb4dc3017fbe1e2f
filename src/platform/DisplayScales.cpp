#include "platform/DisplayScales.h"

#include <QHash>
#include <QLocale>
#include <QStringList>

namespace Kovrel {

QString DisplayScales::write(const DisplayList& displays)
{
    QStringList entries;
    for (const Display& display : displays)
        entries.append(display.name + '=' + QString::number(display.scale, 'g', QLocale::FloatingPointShortest));
    return entries.join(';');
}

std::function<double(const QString&)> DisplayScales::read(const QString& text)
{
    QHash<QString, double> scales;
    for (const QString& entry : text.split(';')) {
        const double scale = entry.section('=', -1).toDouble();
        if (scale > 0 && entry.contains('='))
            scales.insert(entry.section('=', 0, -2), scale);
    }
    return [scales](const QString& name) { return scales.value(name, 1); };
}

} // namespace Kovrel
