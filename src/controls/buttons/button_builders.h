// The builders of all buttons.
#pragma once

#include "controls/buttons/icon_button.h"
#include "controls/buttons/system_button.h"
#include "layout/build/pane_builder.h"

namespace Kesto {

template <>
class CPaneBuilder<CCustomButton> : public CPaneBuilder<CPane> {
public:
    using CPaneBuilder<CPane>::CPaneBuilder;

    // The natural size is that of the look that the text asks for.
    CView* AdjustLayout(CView* parent, LayoutOwner& owner) override;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;

    // What a class is unless the text says otherwise.
    virtual EButtonKind DefaultKind() const { return kPushButton; }
    virtual EButtonStyle DefaultStyle() const { return kButtonStyle_Default; }

    // The look for the keys of the text; null for a class of looks that nobody has registered.
    std::unique_ptr<CButtonGraphic> MakeGraphic(CView* view, const LayoutOwner& owner) const;
    virtual Point NaturalSize(const LayoutOwner& owner) const;
};

template <>
class CPaneBuilder<CButton> : public CPaneBuilder<CCustomButton> {
public:
    using CPaneBuilder<CCustomButton>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
};

template <>
class CPaneBuilder<CIconButton> : public CPaneBuilder<CButton> {
public:
    using CPaneBuilder<CButton>::CPaneBuilder;
    void AppendRows(std::vector<PropertyRows>& rows) const override;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    void ReadKeys(CPane& pane, LayoutOwner& owner) const override;
    EButtonStyle DefaultStyle() const override { return kButtonStyle_Tool; }
    Point NaturalSize(const LayoutOwner& owner) const override;
};

template <>
class CPaneBuilder<CIconButtonDropDown> : public CPaneBuilder<CIconButton> {
public:
    using CPaneBuilder<CIconButton>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    Point NaturalSize(const LayoutOwner& owner) const override;
};

template <>
class CPaneBuilder<CToolButton> : public CPaneBuilder<CIconButton> {
public:
    using CPaneBuilder<CIconButton>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};

template <>
class CPaneBuilder<CSystemButton> : public CPaneBuilder<CButton> {
public:
    using CPaneBuilder<CButton>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    EButtonStyle DefaultStyle() const override;
};

template <>
class CPaneBuilder<CPushButton> : public CPaneBuilder<CSystemButton> {
public:
    using CPaneBuilder<CSystemButton>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
};

template <>
class CPaneBuilder<CCheckButton> : public CPaneBuilder<CSystemButton> {
public:
    using CPaneBuilder<CSystemButton>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    EButtonKind DefaultKind() const override { return kCheckButton; }
};

template <>
class CPaneBuilder<CRadioButton> : public CPaneBuilder<CSystemButton> {
public:
    using CPaneBuilder<CSystemButton>::CPaneBuilder;

protected:
    std::unique_ptr<CPane> MakePane(const PaneParameters& parameters) const override;
    EButtonKind DefaultKind() const override { return kRadioButton; }
};

} // namespace Kesto
