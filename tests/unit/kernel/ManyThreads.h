#pragma once

#include <thread>
#include <vector>

// Runs work 1000 times on each of four threads at once.
template <class Work>
void onManyThreads(Work work)
{
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back(
            [work]
            {
                for (int k = 0; k < 1000; ++k)
                    work();
            });
    for (std::thread& thread : threads)
        thread.join();
}
