#include "platform/InPlace.h"

#include <QFile>
#include <QFileInfo>

namespace {

/// The notes in the lock, each with the number of the copy: while that is made, while the file is written over, and
/// when that failed.
const QByteArray Copying = "copying ";
const QByteArray Over = "over ";
const QByteArray Back = "back ";

/// The name of the copy with that number.
QString CopyName(const QString& target, int number) {
    const QString name = target + QStringLiteral(".earlier");
    return number == 0 ? name : name + QStringLiteral("(%1)").arg(number);
}

int FreeNumberFor(const QString& target) {
    int number = 0;
    while (QFileInfo(CopyName(target, number)).isSymLink() || QFile::exists(CopyName(target, number)))
        ++number;
    return number;
}

bool ReadAll(const QString& path, QByteArray& content) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    content = file.readAll();
    return file.error() == QFileDevice::NoError;
}

bool Overwrite(DiskFile& file, const QByteArray& content) {
    return file.IsOpen() && file.Write(content) && file.CutTo(content.size()) && file.Flush() &&
           Holds(file, 0, content);
}

QString ReasonOf(const DiskFile& file) { return file.Reason().isEmpty() ? ReadBackDiffers : file.Reason(); }

QString SetAside(const QString& target, const QString& copy, const QByteArray& earlier) {
    DiskFile aside(copy, DiskFile::Way::New);
    if (!aside.IsOpen())
        return ReasonOf(aside);
    aside.TakeAccessOf(target);
    if (aside.Write(earlier) && aside.Flush() && Holds(aside, 0, earlier) && aside.Close())
        return {};
    aside.Close();
    QFile::remove(copy);
    return ReasonOf(aside);
}

/// Whether each byte is that of one of the two, as after writing that was interrupted, and not somebody's change since.
bool IsMixOf(const QByteArray& content, const QByteArray& one, const QByteArray& other) {
    if (content.size() > qMax(one.size(), other.size()))
        return false;
    for (qsizetype i = 0; i < content.size(); ++i)
        if (!(i < one.size() && content[i] == one[i]) && !(i < other.size() && content[i] == other[i]))
            return false;
    return true;
}

} // namespace

/// Reads back in blocks: a workbook may be large.
bool Holds(const DiskFile& file, qint64 position, const QByteArray& content) {
    constexpr qint64 block = 1 << 20;
    for (qint64 done = 0; done < content.size(); done += block) {
        const QByteArrayView part = QByteArrayView(content).sliced(done, qMin(block, content.size() - done));
        if (file.Read(position + done, part.size()) != part)
            return false;
    }
    return true;
}

QString FreshNameFor(const QString& target) { return HiddenNameBeside(target, QStringLiteral(".vellumo-new")); }

WriteOutcome WriteInPlace(const QString& target, const QString& fresh, const QByteArray& content, FileLock* lock) {
    const QString unchanged = QStringLiteral("The earlier version was not changed.");
    QByteArray earlier;
    if (!ReadAll(target, earlier))
        return {false, QStringLiteral("its earlier version can't be read"), unchanged};
    const int number = FreeNumberFor(target);
    const QString copy = CopyName(target, number);
    const auto note = [&](const QByteArray& text) {
        if (lock)
            lock->SetNote(text);
    };
    note(Copying + QByteArray::number(number));
    if (const QString reason = SetAside(target, copy, earlier); !reason.isEmpty()) {
        note({});
        return {false, QStringLiteral("its earlier version can't be set aside: ") + reason, unchanged};
    }
    const auto done = [&](const WriteOutcome& outcome) {
        // With the note that is there, the next one who takes the lock tries it again.
        if (QFile::remove(copy)) {
            QFile::remove(fresh);
            note({});
        }
        return outcome;
    };
    note(Over + QByteArray::number(number));
    DiskFile file(target, DiskFile::Way::InPlace);
    if (Overwrite(file, content))
        return done({true, {}, {}});
    const QString reason = ReasonOf(file);
    file.Close();
    note(Back + QByteArray::number(number));
    DiskFile again(target, DiskFile::Way::InPlace);
    if (Overwrite(again, earlier))
        return done({false, reason, unchanged});
    return {false, reason, QStringLiteral("The earlier version is in '") + copy + QStringLiteral("'.")};
}

bool IsWrittenOver(const QByteArray& note) {
    return note.startsWith(Copying) || note.startsWith(Over) || note.startsWith(Back);
}

bool PutBackEarlier(const QString& target, const QByteArray& note) {
    const QString copy = CopyName(target, note.sliced(note.indexOf(' ') + 1).toInt());
    QByteArray now;
    QByteArray earlier;
    QByteArray fresh;
    const QString freshName = FreshNameFor(target);
    for (const auto& [name, content] : {std::pair(&copy, &earlier), {&freshName, &fresh}, {&target, &now}})
        if (!ReadAll(*name, *content))
            return !QFile::exists(*name); // somebody who may read it can still do it
    if (note.startsWith(Copying) ? !now.startsWith(earlier) : !IsMixOf(now, fresh, earlier))
        return true; // what was changed since stays, and so does the copy
    const bool isComplete = note.startsWith(Copying) || (note.startsWith(Over) && now == fresh);
    DiskFile file(target, DiskFile::Way::InPlace);
    if (!isComplete && !Overwrite(file, earlier))
        return false;
    return QFile::remove(copy) && QFile::remove(freshName);
}

void AwaitWriter(const QString& path) {
    FileLock lock(path);
    if (lock.IsThere())
        lock.Take();
}
