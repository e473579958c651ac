#pragma once

#include <QObject>

/// A split view's limits on its own. The history window answers with narrower ones, those of its
/// view controller; the difference is deliberate.
class SplitViewDelegate : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Least and greatest position of the divider in points, whatever is proposed.
    double constrainMinCoordinate(double) const { return 100.0; }
    double constrainMaxCoordinate(double) const { return 699.0; }
};
