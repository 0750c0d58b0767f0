#include "taker/ReadingSize.h"

#include <QList>
#include <QString>

#include <algorithm>

namespace {

const QString Key = QStringLiteral("ReadingSize");
const QList<int> Steps = {80, 90, 100, 115, 130, 150, 175, 200, 250};
constexpr int Usual = 100;

qsizetype NearestStep(int percent) {
    const auto nearest =
        std::ranges::min_element(Steps, {}, [percent](int step) { return qAbs(qint64(step) - qint64(percent)); });
    return nearest - Steps.begin();
}

qsizetype StoredStep(const SettingsStore* store) {
    bool isNumber = false;
    const int percent = store ? store->Read(Key, QString()).toInt(&isNumber) : 0;
    return NearestStep(isNumber ? percent : Usual);
}

} // namespace

ReadingSize::ReadingSize(SettingsStore* store) : store_(store), step_(StoredStep(store)) {}

int ReadingSize::Percent() const { return Steps[step_]; }

void ReadingSize::Step(int direction) { Take(qBound(qsizetype(0), step_ + direction, Steps.size() - 1)); }

void ReadingSize::Reset() { Take(NearestStep(Usual)); }

void ReadingSize::Take(qsizetype step) {
    if (step == step_)
        return;
    step_ = step;
    // A size that can't be remembered still holds in this window.
    if (store_)
        store_->Write(Key, QString::number(Percent()));
}
