#include "export/workbook/ZipPackage.h"

#include "base/Text.h"
#include "export/workbook/WorkbookError.h"

#include <QBuffer>
#include <QLocale>
#include <QSet>

#include <deque>
#include <exception>

#include <zip.h>

namespace {

/// From so many bytes on an entry is packed for speed rather than for size.
constexpr qint64 LargeEntry = 2 << 20;
constexpr zip_uint32_t QuickLevel = 2;
constexpr zip_uint32_t UsualLevel = 6;

QString ReasonOf(zip_error_t* error) { return QString::fromUtf8(zip_error_strerror(error)); }

QString Grouped(qint64 number) { return QLocale(QLocale::English).toString(number); }

/// Whether a name stays within the archive, wherever it would be unpacked.
bool StaysInside(const QString& name) {
    return !name.startsWith(u'/') && !name.contains(u'\\') && !name.split(u'/').contains(QStringLiteral(".."));
}

zip_int64_t SizeIs(void* data, qint64 size) {
    auto* stat = static_cast<zip_stat_t*>(data);
    zip_stat_init(stat);
    stat->valid = ZIP_STAT_SIZE;
    stat->size = static_cast<zip_uint64_t>(size);
    return sizeof *stat;
}

} // namespace

/// What libzip asks for: the archive's bytes, and a place to write the new ones to.
struct ZipPackage::Access {
    QIODevice* From = nullptr;
    QByteArray* To = nullptr;
    qint64 ReadAt = 0;
    qint64 WriteAt = 0;
    zip_error_t Error{};

    zip_int64_t Fail(int code) {
        zip_error_set(&Error, code, 0);
        return -1;
    }

    zip_int64_t Read(void* data, qint64 length) {
        if (From->pos() != ReadAt && !From->seek(ReadAt))
            return Fail(ZIP_ER_SEEK);
        const qint64 count = From->read(static_cast<char*>(data), length);
        if (count < 0)
            return Fail(ZIP_ER_READ);
        ReadAt += count;
        return count;
    }

    zip_int64_t Write(const void* data, qint64 length) {
        To->resize(qMax<qsizetype>(To->size(), WriteAt + length));
        std::memcpy(To->data() + WriteAt, data, static_cast<size_t>(length));
        WriteAt += length;
        return length;
    }

    zip_int64_t Seek(qint64& at, qint64 size, void* data, zip_uint64_t length) {
        const zip_int64_t to = zip_source_seek_compute_offset(static_cast<zip_uint64_t>(at),
                                                              static_cast<zip_uint64_t>(size), data, length, &Error);
        if (to < 0)
            return -1;
        at = to;
        return 0;
    }

    static zip_int64_t Serve(void* user, void* data, zip_uint64_t length, zip_source_cmd_t command) {
        auto& self = *static_cast<Access*>(user);
        switch (command) {
        case ZIP_SOURCE_OPEN:
            self.ReadAt = 0;
            return 0;
        case ZIP_SOURCE_READ:
            return self.Read(data, static_cast<qint64>(length));
        case ZIP_SOURCE_STAT:
            return SizeIs(data, self.From->size());
        case ZIP_SOURCE_SEEK:
            return self.Seek(self.ReadAt, self.From->size(), data, length);
        case ZIP_SOURCE_TELL:
            return self.ReadAt;
        case ZIP_SOURCE_BEGIN_WRITE:
            self.WriteAt = 0;
            return self.To ? 0 : self.Fail(ZIP_ER_OPNOTSUPP);
        case ZIP_SOURCE_WRITE:
            return self.Write(data, static_cast<qint64>(length));
        case ZIP_SOURCE_SEEK_WRITE:
            return self.Seek(self.WriteAt, self.To->size(), data, length);
        case ZIP_SOURCE_TELL_WRITE:
            return self.WriteAt;
        case ZIP_SOURCE_CLOSE:
        case ZIP_SOURCE_COMMIT_WRITE:
        case ZIP_SOURCE_ROLLBACK_WRITE:
        case ZIP_SOURCE_REMOVE:
        case ZIP_SOURCE_FREE:
            return 0;
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(&self.Error, data, length);
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(
                ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT, ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE,
                ZIP_SOURCE_SEEK, ZIP_SOURCE_TELL, ZIP_SOURCE_BEGIN_WRITE, ZIP_SOURCE_COMMIT_WRITE,
                ZIP_SOURCE_ROLLBACK_WRITE, ZIP_SOURCE_WRITE, ZIP_SOURCE_SEEK_WRITE, ZIP_SOURCE_TELL_WRITE,
                ZIP_SOURCE_REMOVE, ZIP_SOURCE_SUPPORTS, -1);
        default:
            return self.Fail(ZIP_ER_OPNOTSUPP);
        }
    }
};

struct ZipPackage::Archive {
    zip_t* Zip = nullptr;

    Archive(Access& access, int flags) {
        zip_error_t error;
        zip_error_init(&error);
        zip_source_t* source = zip_source_function_create(Access::Serve, &access, &error);
        Zip = source ? zip_open_from_source(source, flags, &error) : nullptr;
        if (!Zip && source)
            zip_source_free(source);
        const QString reason = ReasonOf(&error);
        zip_error_fini(&error);
        if (!Zip)
            throw WorkbookError(QStringLiteral("it is no workbook, or a damaged one (%1)").arg(reason));
    }
    ~Archive() {
        if (Zip)
            zip_discard(Zip);
    }
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;

    zip_int64_t IndexOf(const QString& name) const {
        return zip_name_locate(Zip, name.toUtf8().constData(), ZIP_FL_ENC_UTF_8);
    }
    [[noreturn]] void Fail(const QString& what) const {
        throw WorkbookError(what + QStringLiteral(" (%1)").arg(ReasonOf(zip_get_error(Zip))));
    }
};

/// An entry that is put into an archive while that is packed.
struct AddedEntry {
    OpenBytes Content;
    qint64 AtMost = 0;
    qint64 Given = 0;
    bool Ended = false;
    std::unique_ptr<ByteSource> Now;
    /// What its content threw: no exception passes through libzip.
    std::exception_ptr Failure;
    zip_error_t Error{};

    zip_int64_t Guarded(const std::function<zip_int64_t()>& action) {
        try {
            return action();
        } catch (...) {
            Failure = std::current_exception();
            zip_error_set(&Error, ZIP_ER_INTERNAL, 0);
            return -1;
        }
    }

    static zip_int64_t Serve(void* user, void* data, zip_uint64_t length, zip_source_cmd_t command) {
        auto& self = *static_cast<AddedEntry*>(user);
        switch (command) {
        case ZIP_SOURCE_OPEN:
            self.Given = 0;
            self.Ended = false;
            return self.Guarded([&] {
                self.Now = self.Content();
                return 0;
            });
        case ZIP_SOURCE_READ:
            return self.Guarded([&] {
                const qint64 count = self.Now->Read(static_cast<char*>(data), static_cast<qint64>(length));
                self.Given += count;
                self.Ended = self.Ended || count == 0;
                return count;
            });
        case ZIP_SOURCE_CLOSE:
            self.Now.reset();
            return 0;
        case ZIP_SOURCE_STAT:
            return SizeIs(data, self.Ended ? self.Given : self.AtMost);
        case ZIP_SOURCE_ERROR:
            return zip_error_to_data(&self.Error, data, length);
        case ZIP_SOURCE_FREE:
            return 0;
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ, ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                                  ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, ZIP_SOURCE_SUPPORTS, -1);
        default:
            zip_error_set(&self.Error, ZIP_ER_OPNOTSUPP, 0);
            return -1;
        }
    }
};

namespace {

/// An entry while it is unpacked.
class EntrySource : public ByteSource {
  public:
    EntrySource(zip_file_t* file, QString entry, qint64 size) : file_(file), entry_(std::move(entry)), size_(size) {}
    ~EntrySource() override { zip_fclose(file_); }
    EntrySource(const EntrySource&) = delete;
    EntrySource& operator=(const EntrySource&) = delete;

    qint64 Read(char* to, qint64 most) override {
        const zip_int64_t count = zip_fread(file_, to, static_cast<zip_uint64_t>(most));
        given_ += qMax<qint64>(count, 0);
        // The read that meets the end compares the checksum.
        if (count < 0 || given_ > size_ || (count == 0 && given_ != size_))
            throw WorkbookError(entry_ +
                                QStringLiteral(" is damaged (%1)").arg(ReasonOf(zip_file_get_error(file_))));
        return count;
    }

  private:
    zip_file_t* file_;
    QString entry_;
    qint64 size_;
    qint64 given_ = 0;
};

QString Named(const QString& name) { return QStringLiteral("its part ") + Quoted(name); }

std::unique_ptr<QIODevice> DeviceWith(const QByteArray& bytes) {
    auto buffer = std::make_unique<QBuffer>();
    buffer->setData(bytes);
    buffer->open(QIODevice::ReadOnly);
    return buffer;
}

} // namespace

ZipPackage::ZipPackage() : device_(DeviceWith({})), access_(std::make_unique<Access>()) { access_->From = device_.get(); }

ZipPackage::ZipPackage(const QByteArray& bytes) : ZipPackage(DeviceWith(bytes)) {}

ZipPackage::ZipPackage(std::unique_ptr<QIODevice> device)
    : device_(std::move(device)), access_(std::make_unique<Access>()) {
    access_->From = device_.get();
    archive_ = std::make_unique<Archive>(*access_, ZIP_RDONLY);
    QSet<QString> names;
    for (zip_int64_t i = 0; i < zip_get_num_entries(archive_->Zip, 0); ++i) {
        const QString name = QString::fromUtf8(zip_get_name(archive_->Zip, static_cast<zip_uint64_t>(i), 0));
        if (!StaysInside(name))
            throw WorkbookError(QStringLiteral("its entry ") + Quoted(name) + QStringLiteral(" leads out of it"));
        if (names.contains(name))
            throw WorkbookError(QStringLiteral("its entry ") + Quoted(name) + QStringLiteral(" is there twice"));
        names.insert(name);
    }
}

ZipPackage::~ZipPackage() = default;

bool ZipPackage::Has(const QString& name) const {
    return additions_.contains(name) || (archive_ && archive_->IndexOf(name) >= 0);
}

qint64 ZipPackage::SizeOf(const QString& name, qint64 maxBytes) const {
    const zip_int64_t index = archive_ ? archive_->IndexOf(name) : -1;
    if (index < 0)
        throw WorkbookError(Named(name) + QStringLiteral(" is missing"));
    zip_stat_t stat;
    if (zip_stat_index(archive_->Zip, static_cast<zip_uint64_t>(index), 0, &stat) != 0 ||
        !(stat.valid & ZIP_STAT_SIZE))
        archive_->Fail(Named(name) + QStringLiteral(" can't be read"));
    if (stat.size > static_cast<zip_uint64_t>(maxBytes))
        throw WorkbookError(Named(name) +
                            QStringLiteral(" is %1 bytes long, and at most %2 can be read")
                                .arg(QLocale(QLocale::English).toString(stat.size), Grouped(maxBytes)));
    return static_cast<qint64>(stat.size);
}

std::unique_ptr<ByteSource> ZipPackage::Open(const QString& name, qint64 maxBytes) const {
    const qint64 size = SizeOf(name, maxBytes);
    zip_file_t* file = zip_fopen_index(archive_->Zip, static_cast<zip_uint64_t>(archive_->IndexOf(name)), 0);
    if (!file)
        archive_->Fail(Named(name) + QStringLiteral(" can't be read"));
    return std::make_unique<EntrySource>(file, Named(name), size);
}

QByteArray ZipPackage::Read(const QString& name, qint64 maxBytes) const {
    const auto source = Open(name, maxBytes);
    QByteArray content(SizeOf(name, maxBytes), Qt::Uninitialized);
    qint64 done = 0;
    for (qint64 count = 1; count > 0 && done < content.size(); done += count)
        count = source->Read(content.data() + done, content.size() - done);
    char beyond = 0;
    source->Read(&beyond, 1);
    return content;
}

void ZipPackage::Put(const QString& name, const QByteArray& content) {
    Put(name, [content] { return std::make_unique<MemorySource>(content); }, content.size());
}

void ZipPackage::Put(const QString& name, OpenBytes content, qint64 atMost) {
    additions_[name] = {std::move(content), atMost};
}

void ZipPackage::Add(Archive& archive, const QString& name, AddedEntry& entry) const {
    const bool isNew = archive.IndexOf(name) < 0;
    zip_source_t* source = zip_source_function(archive.Zip, AddedEntry::Serve, &entry);
    const zip_int64_t index =
        source ? zip_file_add(archive.Zip, name.toUtf8().constData(), source, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8) : -1;
    if (index < 0) {
        if (source)
            zip_source_free(source);
        archive.Fail(Named(name) + QStringLiteral(" can't be replaced"));
    }
    // libzip forgets the level when the method stays that of the entry that is replaced; its default is deflate too.
    zip_set_file_compression(archive.Zip, static_cast<zip_uint64_t>(index), isNew ? ZIP_CM_DEFLATE : ZIP_CM_DEFAULT,
                             entry.AtMost >= LargeEntry ? QuickLevel : UsualLevel);
}

QByteArray ZipPackage::Pack() {
    QByteArray packed;
    // The archive that is read stays as it is: contents that are put may still read from it.
    Access access;
    access.From = device_.get();
    access.To = &packed;
    std::deque<AddedEntry> entries;
    Archive archive(access, archive_ ? 0 : ZIP_CREATE | ZIP_TRUNCATE);
    for (const auto& [name, addition] : additions_) {
        AddedEntry& entry = entries.emplace_back();
        entry.Content = addition.Content;
        entry.AtMost = addition.AtMost;
        Add(archive, name, entry);
    }
    if (zip_close(archive.Zip) == 0) {
        archive.Zip = nullptr;
        return packed;
    }
    for (const AddedEntry& entry : entries)
        if (entry.Failure)
            std::rethrow_exception(entry.Failure);
    archive.Fail(QStringLiteral("it can't be packed"));
}
