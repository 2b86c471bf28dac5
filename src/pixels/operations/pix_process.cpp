#include "pixels/operations/pix_process.h"

namespace Kesto {

bool CPixProcess::ReportProgress(std::uint32_t count, Callback callback, void* userData)
{
    return callback == nullptr || callback(count, userData);
}

bool CPixProcess::DoCell(std::int32_t column, std::int32_t row, std::uint32_t& done,
                         Callback callback, void* userData)
{
    while (GetCellState(column, row) < GetStepCount(column, row))
        if (!DoStep(column, row, done, callback, userData))
            return false;
    return true;
}

std::uint32_t CPixProcess::DoStepQuietly(std::int32_t column, std::int32_t row)
{
    std::uint32_t done = 0;
    DoStep(column, row, done, nullptr, nullptr);
    return done;
}

std::uint32_t CPixProcess::DoCellQuietly(std::int32_t column, std::int32_t row)
{
    std::uint32_t done = 0;
    DoCell(column, row, done, nullptr, nullptr);
    return done;
}

std::uint32_t CPixProcess::GetCellState(std::int32_t column, std::int32_t row)
{
    return GetState(column, row);
}

std::uint32_t CPixProcess::GetStepsLeft(std::int32_t column, std::int32_t row)
{
    const std::uint32_t count = GetStepCount(column, row);
    return count - std::min(count, GetCellState(column, row));
}

// A cell that is not in the grid has no steps.
std::uint32_t CPixProcess::GetStepCount(std::int32_t column, std::int32_t row)
{
    return HasCell(column, row) ? fStepsPerCell : 0;
}

bool CPixProcess::DoCells(std::int32_t column, std::int32_t row, std::int32_t columns,
                          std::int32_t rows, std::uint32_t& done, Callback callback, void* userData)
{
    for (std::int32_t y = row; y < row + rows; ++y)
        for (std::int32_t x = column; x < column + columns; ++x)
            if (!DoCell(x, y, done, callback, userData))
                return false;
    return true;
}

std::uint32_t CPixProcess::DoFirstStepInCells(std::int32_t column, std::int32_t row,
                                              std::int32_t columns, std::int32_t rows)
{
    for (std::int32_t y = row; y < row + rows; ++y)
        for (std::int32_t x = column; x < column + columns; ++x)
            if (const std::uint32_t done = DoStepQuietly(x, y); done > 0)
                return done;
    return 0;
}

std::uint32_t CPixProcess::Sum(CellSum operation, std::int32_t column, std::int32_t row,
                               std::int32_t columns, std::int32_t rows)
{
    std::uint32_t sum = 0;
    for (std::int32_t y = row; y < row + rows; ++y)
        for (std::int32_t x = column; x < column + columns; ++x)
            sum += (this->*operation)(x, y);
    return sum;
}

std::uint32_t CPixProcess::DoCellsQuietly(std::int32_t column, std::int32_t row,
                                          std::int32_t columns, std::int32_t rows)
{
    return Sum(&CPixProcess::DoCellQuietly, column, row, columns, rows);
}

std::uint32_t CPixProcess::CountSteps(std::int32_t column, std::int32_t row, std::int32_t columns,
                                      std::int32_t rows)
{
    return Sum(&CPixProcess::GetCellState, column, row, columns, rows);
}

std::uint32_t CPixProcess::CountStepsLeft(std::int32_t column, std::int32_t row,
                                          std::int32_t columns, std::int32_t rows)
{
    return Sum(&CPixProcess::GetStepsLeft, column, row, columns, rows);
}

std::uint32_t CPixProcess::CountAllSteps(std::int32_t column, std::int32_t row,
                                         std::int32_t columns, std::int32_t rows)
{
    return Sum(&CPixProcess::GetStepCount, column, row, columns, rows);
}

bool CPixProcess::DoAll(std::uint32_t& done, Callback callback, void* userData)
{
    return DoCells(0, 0, GetColumns(), GetRows(), done, callback, userData) &&
           Finish(done, callback, userData);
}

std::uint32_t CPixProcess::DoFirstStep()
{
    const std::uint32_t done = DoFirstStepInCells(0, 0, GetColumns(), GetRows());
    return done > 0 ? done : FinishFirstStep();
}

std::uint32_t CPixProcess::DoCellsQuietly()
{
    const std::uint32_t done = DoCellsQuietly(0, 0, GetColumns(), GetRows());
    return done + FinishQuietly();
}

std::uint32_t CPixProcess::CountSteps()
{
    return CountSteps(0, 0, GetColumns(), GetRows()) + CountFinishSteps();
}

std::uint32_t CPixProcess::CountStepsLeft()
{
    return CountStepsLeft(0, 0, GetColumns(), GetRows()) + CountFinishStepsLeft();
}

std::uint32_t CPixProcess::CountAllSteps()
{
    return CountAllSteps(0, 0, GetColumns(), GetRows()) + CountAllFinishSteps();
}

bool CPixProcess::Finish(std::uint32_t&, Callback, void*)
{
    return true;
}

std::uint32_t CPixProcess::FinishFirstStep()
{
    return 0;
}

std::uint32_t CPixProcess::FinishQuietly()
{
    return 0;
}

std::uint32_t CPixProcess::CountFinishSteps()
{
    return 0;
}

std::uint32_t CPixProcess::CountFinishStepsLeft()
{
    return 0;
}

std::uint32_t CPixProcess::CountAllFinishSteps()
{
    return 0;
}

} // namespace Kesto
