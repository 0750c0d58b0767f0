#include "taker/ReadingSize.h"

#include <QList>
#include <QString>

#include <algorithm>

namespace {

const QString Key = QStringLiteral("ReadingSize");
const QList<int> Steps = {80, 90, 100, 115, 130, 150, 175, 200, 250};
constexpr int Usual = 100;
/// The room that the window needs at the usual size; with larger texts it needs about that much more.
constexpr int LeastWidth = 270;
constexpr int LeastHeight = 300;

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

qsizetype LastStep(int largest) {
    const auto above = std::ranges::find_if(Steps, [largest](int step) { return step > Usual && step > largest; });
    return above - Steps.begin() - 1;
}

} // namespace

ReadingSize::ReadingSize(SettingsStore* store, int largest)
    : store_(store), lastStep_(LastStep(largest)), step_(qMin(StoredStep(store), lastStep_)) {}

int ReadingSize::LargestOn(int width, int height) { return qMin(100 * width / LeastWidth, 100 * height / LeastHeight); }

int ReadingSize::Percent() const { return Steps[step_]; }

void ReadingSize::Step(int direction) { Take(qBound(qsizetype(0), step_ + direction, lastStep_)); }

void ReadingSize::Reset() { Take(NearestStep(Usual)); }

void ReadingSize::Take(qsizetype step) {
    if (step == step_)
        return;
    step_ = step;
    // A size that can't be remembered still holds in this window.
    if (store_)
        store_->Write(Key, QString::number(Percent()));
}
