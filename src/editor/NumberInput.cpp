#include "editor/NumberInput.h"

#include "base/WholeNumber.h"

NumberInput JudgeNumberInput(QStringView text) {
    if (TryWholeNumber(text))
        return NumberInput::Number;
    QStringView rest = text.trimmed();
    if (rest.startsWith(u'+') || rest.startsWith(u'-'))
        rest = rest.mid(1);
    return rest.isEmpty() || rest == u"." ? NumberInput::Unfinished : NumberInput::Invalid;
}
