#include "app/ui/GuardedApplication.h"

#include "base/Failure.h"

#include <QTextStream>

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const Failure& failure) {
        Tell(failure.Message());
    } catch (const std::exception& failure) {
        Tell(QStringLiteral("Something went wrong: ") + QString::fromLocal8Bit(failure.what()));
    } catch (...) {
        Tell(QStringLiteral("Something went wrong, and nothing is known about it."));
    }
    return false;
}

void GuardedApplication::Tell(const QString& message) {
    if (prompts_)
        prompts_->Ask({message, {}, PromptButtons::Ok, PromptIcon::Critical});
    else
        QTextStream(stderr) << message << Qt::endl;
}
