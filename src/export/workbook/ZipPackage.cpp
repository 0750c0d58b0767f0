#include "export/workbook/ZipPackage.h"

#include "base/Text.h"
#include "export/workbook/WorkbookError.h"

#include <QLocale>
#include <QSet>

#include <cstdlib>
#include <cstring>
#include <new>

#include <zip.h>

namespace {

/// From so many bytes on an entry is packed for speed rather than for size.
constexpr qint64 LargeEntry = 2 << 20;
constexpr zip_uint32_t QuickLevel = 2;
constexpr zip_uint32_t UsualLevel = 6;

QString ReasonOf(zip_error_t* error) { return QString::fromUtf8(zip_error_strerror(error)); }

QString Grouped(quint64 number) { return QLocale(QLocale::English).toString(number); }

/// Whether a name stays within the archive, wherever it would be unpacked.
bool StaysInside(const QString& name) {
    return !name.startsWith(u'/') && !name.contains(u'\\') && !name.split(u'/').contains(QStringLiteral(".."));
}

} // namespace

struct ZipPackage::Archive {
    zip_source_t* Source = nullptr;
    zip_t* Zip = nullptr;

    ~Archive() {
        if (Zip)
            zip_discard(Zip);
        if (Source)
            zip_source_free(Source);
    }

    void Open(const QByteArray& bytes, int flags) {
        // libzip gets a copy of its own to free: it writes the changed archive into the same source, and releases of it
        // then free what was only lent to them.
        void* copy = bytes.isEmpty() ? nullptr : std::malloc(static_cast<size_t>(bytes.size()));
        if (!copy && !bytes.isEmpty())
            throw std::bad_alloc();
        if (copy)
            std::memcpy(copy, bytes.constData(), static_cast<size_t>(bytes.size()));
        zip_error_t error;
        zip_error_init(&error);
        Source = zip_source_buffer_create(copy, static_cast<zip_uint64_t>(bytes.size()), 1, &error);
        if (!Source)
            std::free(copy);
        else
            Zip = zip_open_from_source(Source, flags, &error);
        const QString reason = ReasonOf(&error);
        zip_error_fini(&error);
        if (!Zip)
            throw WorkbookError(QStringLiteral("it is no workbook, or a damaged one (%1)").arg(reason));
        // The archive lets go of its source when it is closed; what was packed is read from it afterwards.
        zip_source_keep(Source);
    }

    zip_int64_t IndexOf(const QString& name) const {
        return zip_name_locate(Zip, name.toUtf8().constData(), ZIP_FL_ENC_UTF_8);
    }

    [[noreturn]] void Fail(const QString& what) const {
        throw WorkbookError(what + QStringLiteral(" (%1)").arg(ReasonOf(zip_get_error(Zip))));
    }
};

ZipPackage::ZipPackage() : archive_(std::make_unique<Archive>()) { archive_->Open({}, ZIP_CREATE | ZIP_TRUNCATE); }

ZipPackage::ZipPackage(const QByteArray& bytes) : archive_(std::make_unique<Archive>()) {
    archive_->Open(bytes, 0);
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

bool ZipPackage::Has(const QString& name) const { return archive_->IndexOf(name) >= 0; }

QByteArray ZipPackage::Read(const QString& name, qint64 maxBytes) const {
    const QString entry = QStringLiteral("its part ") + Quoted(name);
    const zip_int64_t index = archive_->IndexOf(name);
    if (index < 0)
        throw WorkbookError(entry + QStringLiteral(" is missing"));
    const auto at = static_cast<zip_uint64_t>(index);
    zip_stat_t stat;
    if (zip_stat_index(archive_->Zip, at, 0, &stat) != 0 || !(stat.valid & ZIP_STAT_SIZE))
        archive_->Fail(entry + QStringLiteral(" can't be read"));
    if (stat.size > static_cast<zip_uint64_t>(maxBytes))
        throw WorkbookError(entry + QStringLiteral(" is %1 bytes long, and at most %2 can be read")
                                        .arg(Grouped(stat.size), Grouped(static_cast<quint64>(maxBytes))));

    zip_file_t* file = zip_fopen_index(archive_->Zip, at, 0);
    if (!file)
        archive_->Fail(entry + QStringLiteral(" can't be read"));
    QByteArray content(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    const zip_int64_t read = zip_fread(file, content.data(), stat.size);
    // Only the read that meets the end compares the checksum.
    char beyond = 0;
    const bool sound = read == static_cast<zip_int64_t>(stat.size) && zip_fread(file, &beyond, 1) == 0;
    const QString reason = ReasonOf(zip_file_get_error(file));
    zip_fclose(file);
    if (!sound)
        throw WorkbookError(entry + QStringLiteral(" is damaged (%1)").arg(reason));
    return content;
}

void ZipPackage::Put(const QString& name, const std::vector<QByteArrayView>& pieces) {
    const bool isNew = !Has(name);
    qint64 size = 0;
    std::vector<zip_buffer_fragment_t> fragments;
    for (const QByteArrayView piece : pieces) {
        // libzip takes the bytes as its own, but a source that it need not free is only read.
        auto* data = reinterpret_cast<zip_uint8_t*>(const_cast<char*>(piece.data()));
        if (!piece.empty())
            fragments.push_back({data, static_cast<zip_uint64_t>(piece.size())});
        size += piece.size();
    }
    zip_source_t* source = zip_source_buffer_fragment(archive_->Zip, fragments.data(), fragments.size(), 0);
    const zip_int64_t index =
        source ? zip_file_add(archive_->Zip, name.toUtf8().constData(), source, ZIP_FL_OVERWRITE | ZIP_FL_ENC_UTF_8)
               : -1;
    if (index < 0) {
        if (source)
            zip_source_free(source);
        archive_->Fail(QStringLiteral("its part ") + Quoted(name) + QStringLiteral(" can't be replaced"));
    }
    // libzip forgets the level when the method stays that of the entry that is replaced; its default is deflate too.
    zip_set_file_compression(archive_->Zip, static_cast<zip_uint64_t>(index), isNew ? ZIP_CM_DEFLATE : ZIP_CM_DEFAULT,
                             size >= LargeEntry ? QuickLevel : UsualLevel);
}

QByteArray ZipPackage::Pack() {
    if (zip_close(archive_->Zip) != 0)
        archive_->Fail(QStringLiteral("it can't be packed"));
    archive_->Zip = nullptr;
    zip_stat_t stat;
    zip_source_t* source = archive_->Source;
    if (zip_source_stat(source, &stat) != 0 || zip_source_open(source) != 0)
        throw WorkbookError(QStringLiteral("it can't be packed (%1)").arg(ReasonOf(zip_source_error(source))));
    QByteArray packed(static_cast<qsizetype>(stat.size), Qt::Uninitialized);
    const zip_int64_t read = zip_source_read(source, packed.data(), stat.size);
    zip_source_close(source);
    if (read != static_cast<zip_int64_t>(stat.size))
        throw WorkbookError(QStringLiteral("it can't be packed (%1)").arg(ReasonOf(zip_source_error(source))));
    return packed;
}
