#include "document/tree_records.h"

namespace tabulon {

TreeNodeInfo TreeRecords::operator[](std::size_t i) const {
    const auto at = [&](TreeField field) { return std::string(text(i, field)); };
    TreeNodeInfo record;
    record.Name = at(TreeField::Name);
    record.KeyValue = at(TreeField::KeyValue);
    record.ImageName = at(TreeField::ImageName);
    record.GridHeaderKey = at(TreeField::GridHeaderKey);
    record.GridValueKey = at(TreeField::GridValueKey);
    record.Filter = records_[i].Filter;
    record.FilterCaption = at(TreeField::FilterCaption);
    record.FilterProperty = at(TreeField::FilterProperty);
    record.Level = records_[i].Level;
    return record;
}

void TreeRecords::push_back(const TreeNodeInfo& record) {
    records_.emplace_back();
    set(records_.size() - 1, record);
}

void TreeRecords::set(std::size_t i, const TreeNodeInfo& record) {
    setText(i, TreeField::Name, record.Name);
    setText(i, TreeField::KeyValue, record.KeyValue);
    setText(i, TreeField::ImageName, record.ImageName);
    setText(i, TreeField::GridHeaderKey, record.GridHeaderKey);
    setText(i, TreeField::GridValueKey, record.GridValueKey);
    setText(i, TreeField::FilterCaption, record.FilterCaption);
    setText(i, TreeField::FilterProperty, record.FilterProperty);
    records_[i].Filter = record.Filter;
    records_[i].Level = record.Level;
}

void TreeRecords::setText(std::size_t i, TreeField field, std::string_view value) {
    TextRef& ref = records_[i].texts[Slot(field)];
    if (i > 0 && text(i - 1, field) == value) {
        ref = records_[i - 1].texts[Slot(field)];
    } else if (texts_.view(ref) != value) {
        ref = texts_.add(value);
    }
}

void TreeRecords::clear() {
    std::vector<Packed>().swap(records_);
    texts_.clear();
}

}  // namespace tabulon
