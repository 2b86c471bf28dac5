// CPixProcess, work on a grid of cells, each done in a number of steps that can be interrupted
// between any two.
//
// A cell's state is the number of its steps that are done. A callback that returns false stops a
// run; states stay as they are, so that the next run goes on from there. Steps done are added to
// `done`.
#pragma once

#include "pixels/operations/pix_state.h"

namespace Kesto {

class CPixProcess : public CPixState {
public:
    // Told of `count` more steps; returns false to stop.
    using Callback = bool (*)(std::uint32_t count, void* userData);

    // Calls the callback, if there is one. Returns false to stop.
    virtual bool ReportProgress(std::uint32_t count, Callback callback, void* userData);

    // Does one step of a cell, if one is left. Returns false when the callback said stop.
    virtual bool DoStep(std::int32_t column, std::int32_t row, std::uint32_t& done,
                        Callback callback, void* userData) = 0;

    // Does all steps that are left of a cell.
    virtual bool DoCell(std::int32_t column, std::int32_t row, std::uint32_t& done,
                        Callback callback, void* userData);

    // The same without a callback; return the steps done.
    virtual std::uint32_t DoStepQuietly(std::int32_t column, std::int32_t row);
    virtual std::uint32_t DoCellQuietly(std::int32_t column, std::int32_t row);

    virtual std::uint32_t GetCellState(std::int32_t column, std::int32_t row);
    virtual std::uint32_t GetStepsLeft(std::int32_t column, std::int32_t row);
    virtual std::uint32_t GetStepCount(std::int32_t column, std::int32_t row);

    // For a block of cells, row by row. DoCells does all steps until it is stopped, DoCellsQuietly
    // all of them. DoFirstStepInCells does one step: the first that is left in any of the cells.
    virtual bool DoCells(std::int32_t column, std::int32_t row, std::int32_t columns,
                         std::int32_t rows, std::uint32_t& done, Callback callback, void* userData);
    virtual std::uint32_t DoFirstStepInCells(std::int32_t column, std::int32_t row,
                                             std::int32_t columns, std::int32_t rows);
    virtual std::uint32_t DoCellsQuietly(std::int32_t column, std::int32_t row,
                                         std::int32_t columns, std::int32_t rows);

    // Sums over a block of cells: steps done, steps left, steps in all.
    virtual std::uint32_t CountSteps(std::int32_t column, std::int32_t row, std::int32_t columns,
                                     std::int32_t rows);
    virtual std::uint32_t CountStepsLeft(std::int32_t column, std::int32_t row,
                                         std::int32_t columns, std::int32_t rows);
    virtual std::uint32_t CountAllSteps(std::int32_t column, std::int32_t row, std::int32_t columns,
                                        std::int32_t rows);

    // The same over the whole grid, and then what belongs to no cell.
    virtual bool DoAll(std::uint32_t& done, Callback callback, void* userData);
    virtual std::uint32_t DoFirstStep();
    virtual std::uint32_t DoCellsQuietly();
    virtual std::uint32_t CountSteps();
    virtual std::uint32_t CountStepsLeft();
    virtual std::uint32_t CountAllSteps();

protected:
    // What a derived process has to do, or to count, after all cells.
    virtual bool Finish(std::uint32_t& done, Callback callback, void* userData);
    virtual std::uint32_t FinishFirstStep();
    virtual std::uint32_t FinishQuietly();
    virtual std::uint32_t CountFinishSteps();
    virtual std::uint32_t CountFinishStepsLeft();
    virtual std::uint32_t CountAllFinishSteps();

    void SetStepsPerCell(std::uint32_t steps) { fStepsPerCell = steps; }

private:
    using CellSum = std::uint32_t (CPixProcess::*)(std::int32_t column, std::int32_t row);
    std::uint32_t Sum(CellSum operation, std::int32_t column, std::int32_t row,
                      std::int32_t columns, std::int32_t rows);

    std::uint32_t fStepsPerCell = 0;
};

} // namespace Kesto
