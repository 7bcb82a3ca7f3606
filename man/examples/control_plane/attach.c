/* Attaches an instance to its control plane. */
#include <arpa/inet.h>
#include <lumozeph.h>
#include <stdio.h>

int main(void)
{
    uint32_t controller = 0;
    if (inet_pton(AF_INET, "192.0.2.10", &controller) != 1)
        return 1;
    if (LUMOZEPH_SetLumoInstance("blue", 100, NULL, 0) != 0 ||
        LUMOZEPH_SetCPIp("blue", controller) != 0 ||
        LUMOZEPH_CPActivate(1) != 0) {
        perror("attach blue to 192.0.2.10");
        return 1;
    }
    return 0;
}
