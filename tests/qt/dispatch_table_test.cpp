// The widget offers every member of the control's interface table: a host that knows
// the table finds each property (readable for a get, writable for a let) and each
// method by the same name.
#include <gtest/gtest.h>

#include <QMetaMethod>
#include <QMetaObject>
#include <QMetaProperty>

#include "control/dispatch_table.h"
#include "qt/spreadsheet_widget.h"

namespace tabulon {
namespace {

bool HasMethod(const QMetaObject& meta, std::string_view name, QMetaMethod::MethodType type) {
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() == type && method.name().toStdString() == name) return true;
    }
    return false;
}

TEST(DispatchTable, EveryMemberIsAPropertyOrSlotOfTheWidget) {
    const QMetaObject& meta = SpreadsheetWidget::staticMetaObject;
    for (const DispatchEntry& entry : kDispatchTable) {
        SCOPED_TRACE(std::string(entry.member));
        const std::string name(entry.member);
        if (entry.kind == MemberKind::Method) {
            EXPECT_TRUE(HasMethod(meta, entry.member, QMetaMethod::Slot));
            continue;
        }
        const int index = meta.indexOfProperty(name.c_str());
        ASSERT_GE(index, meta.propertyOffset());
        const QMetaProperty property = meta.property(index);
        EXPECT_TRUE(entry.kind == MemberKind::PropertyGet ? property.isReadable()
                                                          : property.isWritable());
    }
}

// moc lists the signals first, in their declaration order: the identifiers' order.
TEST(DispatchTable, EveryEventIsASignalOfTheWidgetInIdentifierOrder) {
    const QMetaObject& meta = SpreadsheetWidget::staticMetaObject;
    const char* events[] = {"OKClick", "HelpClick", "PrintClick", "CancelClick",
                            "AppGridEventHandler"};
    for (int id = 1; id <= static_cast<int>(EventId::AppGridEventHandler); ++id) {
        const QMetaMethod method = meta.method(meta.methodOffset() + id - 1);
        EXPECT_EQ(method.methodType(), QMetaMethod::Signal) << id;
        EXPECT_EQ(method.name().toStdString(), events[id - 1]);
    }
}

}  // namespace
}  // namespace tabulon
